// A bag that wraps another one, and offers actions on top of it.
#pragma once

#include "values/storage.h"

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

class PVNContextStorage : public T_StorageInterface {
public:
    // `bag` is not owned and must outlive this. Whatever is set here lands there.
    explicit PVNContextStorage(T_StorageInterface& bag) : storage(bag) {}

    bool Set(std::string_view key, std::string_view typeName, const void* value) override;
    // As the wrapped bag; but an absent PvnWFKey_ProductName is first filled with the host's display name.
    bool Get(std::string_view key, std::string_view typeName, void* out) override;
    void Remove(std::string_view key, std::string_view typeName) override;

    // Does what the name says. The result is empty, an event for the state machine, or a value text.
    virtual std::string Action(std::string_view name) = 0;

private:
    T_StorageInterface& storage;
};

} // namespace brixen::pvn::pvn_workflow
