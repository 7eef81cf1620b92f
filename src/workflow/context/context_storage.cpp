#include "workflow/context/context_storage.h"

#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "workflow/context/context_keys.h"

namespace brixen::pvn::pvn_workflow {

namespace {

const char* HostDisplayName() {
    const PavaneContext* const frame = GetFrameState().gPavaneContext;
    return frame && frame->hostDisplayName[0] != '\0' ? frame->hostDisplayName : "Product";
}

} // namespace

bool PVNContextStorage::Set(std::string_view key, std::string_view typeName, const void* value) {
    return storage.Set(key, typeName, value);
}

bool PVNContextStorage::Get(std::string_view key, std::string_view typeName, void* out) {
    if (storage.Get(key, typeName, out)) return true;
    if (typeName != kValueTypeString || key != PvnWFKey_ProductName) return false;
    SetString(storage, PvnWFKey_ProductName, HostDisplayName());
    return storage.Get(key, typeName, out);
}

void PVNContextStorage::Remove(std::string_view key, std::string_view typeName) {
    storage.Remove(key, typeName);
}

} // namespace brixen::pvn::pvn_workflow
