// Bitmaps, NAME.png: from the language's folder or from the root, decoded once and kept by name.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/platform/resource_platform.h"
#include "workflow/resources/decoder_share.h"
#include "workflow/resources/resource_handler.h"

#include <map>
#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNBitmapHandler final : public PVNResourceHandler {
public:
    // A zeve::NativeBitmap that the handler owns, or null; what failed is tried again by the next call.
    // `locale` and `mode` are ignored, so that no caller can change the search.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    // Deletes the bitmap and forgets the name.
    void Release(const std::string& name) override;
    std::string Description() const override { return "Bitmap Resource"; }

private:
    struct Deleter {
        using pointer = zeve::NativeBitmap;
        void operator()(zeve::NativeBitmap bitmap) const { platform::DeleteBitmap(bitmap); }
    };
    using OwnedBitmap = std::unique_ptr<zeve::NativeBitmap, Deleter>;

    OwnedBitmap Decode(const char16_t* path);

    DecoderShare decoder; // outlives the bitmaps
    std::map<std::string, OwnedBitmap> bitmaps;
};

} // namespace brixen::pvn::pvn_workflow
