// Objects that are shared by counting references.
#pragma once

#include <cstdint>
#include <utility>

namespace kestrel_private {

// An object without a reference at first, which destroys itself when its last reference is released. The
// count is not atomic: one thread at a time.
class RefCountObj {
public:
    RefCountObj() = default;
    RefCountObj(const RefCountObj&) = delete;
    RefCountObj& operator=(const RefCountObj&) = delete;
    virtual ~RefCountObj() = default;

    void AddRef() { ++count; }
    void Release() {
        if (--count == 0) delete this;
    }
    std::int32_t Count() const { return count; }

private:
    std::int32_t count = 0;
};

// A handle that holds one reference while it lives. The object is never null.
template <class Object>
class Reference {
public:
    explicit Reference(Object* object) : object(object) { object->AddRef(); }
    Reference(const Reference& other) : Reference(other.object) {}
    Reference& operator=(Reference other) {
        std::swap(object, other.object);
        return *this;
    }
    // The static analyzer cannot follow counts, so it sees a use of the freed object.
    ~Reference() { object->Release(); } // NOLINT(clang-analyzer-cplusplus.NewDelete)

    Object* operator->() const { return object; }
    Object& operator*() const { return *object; }
    Object* Get() const { return object; }

private:
    Object* object;
};

} // namespace kestrel_private
