// The root of a dialog: the top-level window.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveDialog : public CEveBox {
public:
    ~CEveDialog() override;
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Makes the window, hidden, in the middle of the work area, and stores itself in its dialog's link.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;

private:
    std::u16string ClassName(bool isSystemDialog);
    NativeWindow MakeDialogWindow(const CExpressionScope& attributes);
    void GrowToClientSize();

    // The name of the window class made for this dialog alone, empty for a system dialog.
    std::u16string fOwnClass;
    NativeModule fInstance = nullptr;
};

} // namespace brixen::zeve
