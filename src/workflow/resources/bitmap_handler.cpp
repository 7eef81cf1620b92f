#include "workflow/resources/bitmap_handler.h"

namespace brixen::pvn::pvn_workflow {

bool DecoderShare::Start() {
    if (isHeld) return true;
    ResourceState& state = TheResourceState();
    const std::lock_guard<std::mutex> guard(state.decoderLock);
    if (state.decoderUsers == 0 && !platform::StartDecoder()) return false;
    ++state.decoderUsers;
    return isHeld = true;
}

DecoderShare::~DecoderShare() {
    if (!isHeld) return;
    ResourceState& state = TheResourceState();
    const std::lock_guard<std::mutex> guard(state.decoderLock);
    if (--state.decoderUsers == 0) platform::StopDecoder();
}

PVNBitmapHandler::OwnedBitmap PVNBitmapHandler::Decode(const char16_t* path) {
    if (!decoder.Start()) return nullptr;
    return OwnedBitmap(platform::DecodeBitmap(path).bitmap);
}

void* PVNBitmapHandler::Load(const std::string& name, const std::string&, std::uint32_t) {
    const auto known = bitmaps.find(name);
    if (known != bitmaps.end()) return known->second.get();
    const PathUnits path =
        PVNResourceManager::Get().FindResourceFile(name, "png", kDefaultLocale, kSearchLocaleThenRoot);
    if (!path) return nullptr;
    OwnedBitmap bitmap = Decode(path.get());
    if (!bitmap) return nullptr;
    return bitmaps.emplace(name, std::move(bitmap)).first->second.get();
}

void PVNBitmapHandler::Release(const std::string& name) { bitmaps.erase(name); }

} // namespace brixen::pvn::pvn_workflow
