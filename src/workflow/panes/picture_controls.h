// The picture controls of one dialog that show a bitmap of the resource layer.
//
// A control of the system shows a copy of a bitmap with alpha, and the copy must be freed by the program. So
// the pictures are taken back before the dialog is deleted.
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

    // Loads the bitmap and shows it in place of an earlier one. Without the bitmap the control is empty. A
    // null control is harmless.
    void Show(const std::string& name, zeve::NativeWindow control);
    // Returns whether a control shows that bitmap of the resource layer.
    bool Shows(zeve::NativeBitmap bitmap) const;
    // Empties all controls and frees their copies.
    void TakeBack() noexcept;

private:
    struct Picture {
        zeve::NativeWindow control;
        zeve::NativeBitmap bitmap; // the resource layer's, or null
    };

    std::vector<Picture> shown; // one for each control
};

} // namespace brixen::pvn::pvn_workflow
