// An edit field, of one line or with a vertical scroll bar.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveEditText : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // Takes a text.
    void SetValue(const EventRecord& record) override;
    // Stores the text, unless it is empty or the box is read-only. A field with the ASCII test shows a
    // message for any other character and stores nothing.
    void GetValue(EventRecord& record, bool honorSubCheck) override;

private:
    // Kept: set if the view has `seven_bit_ascii` at all, even as 0.
    bool testsAscii = false;
};

} // namespace brixen::zeve
