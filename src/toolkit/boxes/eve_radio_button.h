// A radio button. It does not move its mark by itself: the host does.
#pragma once

#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveRadioButton : public CEveBox {
public:
    CEveRadioButton() { honoursReadOnly = true; }
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // `initial_value` sets the mark.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // Takes a number: any but 0 sets the mark.
    void SetValue(const EventRecord& record) override;
    // Stores 1 or 0 under `__zeve_get_value_boolean`.
    void GetValue(EventRecord& record, bool honorSubCheck) override;

protected:
    // Makes the control with its sub check and sets the first mark.
    void MakeMarkControl(const CExpressionScope& attributes, const ControlKind& kind);
};

} // namespace brixen::zeve
