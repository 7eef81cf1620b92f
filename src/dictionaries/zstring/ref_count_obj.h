#pragma once

#include <cstdint>

namespace kestrel_private {

// A shared object that destroys itself when its last reference is released. Made with no reference at all.
// Counts are plain: one thread at a time.
class RefCountObj {
public:
    RefCountObj() = default;
    RefCountObj(const RefCountObj&) = delete;
    RefCountObj& operator=(const RefCountObj&) = delete;
    virtual ~RefCountObj() = default;

    void AddRef() { ++fCount; }
    void Release() {
        if (--fCount == 0) delete this;
    }
    std::int32_t Count() const { return fCount; }

private:
    std::int32_t fCount = 0;
};

// One reference, held for as long as this handle lives.
template <class Object>
class Reference {
public:
    explicit Reference(Object* object) : fObject(object) { fObject->AddRef(); }
    Reference(const Reference& other) : Reference(other.fObject) {}
    Reference& operator=(const Reference& other) {
        other.fObject->AddRef();
        fObject->Release();
        fObject = other.fObject;
        return *this;
    }
    ~Reference() { fObject->Release(); }

    Object* operator->() const { return fObject; }
    Object& operator*() const { return *fObject; }
    Object* Get() const { return fObject; }

private:
    Object* fObject;
};

} // namespace kestrel_private
