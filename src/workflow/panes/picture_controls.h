// The picture controls of one dialog that show a bitmap of the resource layer.
//
// A control of the system that is handed a bitmap with alpha shows a copy of its own, which nobody frees but
// whoever handed it over. So the pictures are taken back before the dialog is deleted.
#pragma once

#include "toolkit/platform/native_types.h"

#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {

class PictureControls {
public:
    PictureControls() = default;
    PictureControls(const PictureControls&) = delete;
    PictureControls& operator=(const PictureControls&) = delete;
    ~PictureControls() { TakeBack(); }

    // Loads the bitmap and shows it in place of an earlier one; a missing one is shown as nothing. A null
    // control shows nothing.
    void Show(const std::string& name, zeve::NativeWindow control);
    // Empties all controls and frees their copies.
    void TakeBack() noexcept;

private:
    struct Picture {
        zeve::NativeWindow control;
        zeve::NativeBitmap bitmap; // the resource layer's, or null
    };

    std::vector<Picture> shown; // one a control
};

} // namespace brixen::pvn::pvn_workflow
