// Bitmaps, NAME.png: from the language's folder or from the root, decoded once and kept by name.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/platform/resource_platform.h"
#include "workflow/resources/resource_manager.h"

#include <map>
#include <memory>
#include <string>

namespace brixen::pvn::pvn_workflow {

// A share in the image decoder of the process. The first share starts the decoder, the end of the last one
// stops it. Shares may be held on any thread.
class DecoderShare {
public:
    DecoderShare() = default;
    DecoderShare(const DecoderShare&) = delete;
    DecoderShare& operator=(const DecoderShare&) = delete;
    ~DecoderShare();

    // Returns whether the decoder runs for this share. After a refusal the next call tries again.
    [[nodiscard]] bool Start();

private:
    bool isHeld = false;
};

class PVNBitmapHandler final : public PVNResourceHandler {
public:
    // Returns a zeve::NativeBitmap that the handler owns, or null. After a failure the next call tries again.
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
