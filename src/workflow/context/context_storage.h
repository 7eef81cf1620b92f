// A bag that wraps another bag and adds actions to it.
#pragma once

#include "values/storage.h"

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

class PVNContextStorage : public T_StorageInterface {
public:
    // `bag` is borrowed and must outlive this. Everything that is set here is stored there.
    explicit PVNContextStorage(T_StorageInterface& bag) : storage(bag) {}

    bool Set(std::string_view key, std::string_view typeName, const void* value) override;
    // As the wrapped bag. An absent PvnWFKey_ProductName is first set to the application's display name.
    bool Get(std::string_view key, std::string_view typeName, void* out) override;
    void Remove(std::string_view key, std::string_view typeName) override;

    // Runs the named action. Returns an event for the state machine, a value text, or the empty text.
    virtual std::string Action(std::string_view name) = 0;

private:
    T_StorageInterface& storage; // borrowed
};

} // namespace brixen::pvn::pvn_workflow
