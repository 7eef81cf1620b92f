#include "workflow/panes/picture_controls.h"

#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/platform/resource_platform.h"
#include "workflow/resources/resource_layer.h"

#include <algorithm>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

std::intptr_t SetImage(zeve::NativeWindow control, zeve::NativeBitmap bitmap) noexcept {
    return zeve::platform::Send(control, zeve::kStaticSetImage, zeve::kImageBitmap,
                                reinterpret_cast<std::intptr_t>(bitmap));
}

void TakeImage(zeve::NativeWindow control, zeve::NativeBitmap handedOver) noexcept {
    const auto image = reinterpret_cast<zeve::NativeBitmap>(SetImage(control, nullptr));
    if (image && image != handedOver) platform::DeleteBitmap(image);
}

} // namespace

void PictureControls::Show(const std::string& name, zeve::NativeWindow control) {
    const zeve::NativeBitmap bitmap = LoadBitmapResource(name);
    if (!control) return;
    const auto known = std::ranges::find(shown, control, &Picture::control);
    if (known == shown.end()) {
        shown.push_back({control, bitmap});
    } else {
        TakeImage(control, std::exchange(known->bitmap, bitmap));
    }
    SetImage(control, bitmap);
}

bool PictureControls::Shows(zeve::NativeBitmap bitmap) const {
    return std::ranges::find(shown, bitmap, &Picture::bitmap) != shown.end();
}

void PictureControls::TakeBack() noexcept {
    for (const Picture& picture : shown) TakeImage(picture.control, picture.bitmap);
    shown.clear();
}

} // namespace brixen::pvn::pvn_workflow
