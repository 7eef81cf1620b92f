// The root box of a dialog: its top-level window.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveDialog : public CEveBox {
public:
    ~CEveDialog() override;
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Makes the hidden window in the middle of the work area and stores the box in its DialogLink.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;

private:
    // Returns the name of the window class; for other than system dialogs, registers a new one.
    std::u16string ClassName(bool isSystemDialog);
    NativeWindow MakeDialogWindow(const CExpressionScope& attributes);
    void GrowToClientSize();

    std::u16string ownClass; // the window class registered for this dialog; empty for a system dialog
    NativeModule instance = nullptr;
};

} // namespace brixen::zeve
