// The two boxes with a mark: radio buttons and check boxes.
#pragma once

#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

// A radio button does not move its mark by itself: the host's handler does.
class CEveRadioButton : public CEveBox {
public:
    CEveRadioButton() { honoursReadOnly = true; }
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // A number: marked if it is not 0.
    void SetValue(const EventRecord& record) override;
    // 1 or 0 under `__zeve_get_value_boolean`.
    void GetValue(EventRecord& record, bool honorSubCheck) override;

protected:
    void MakeMarkControl(const CExpressionScope& attributes, const ControlKind& kind);
};

class CEveCheckBox : public CEveRadioButton {
public:
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
};

} // namespace brixen::zeve
