// An edit field.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

class CEveEditText : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // A text.
    void SetValue(const EventRecord& record) override;
    // The text, unless it is empty, or the box is read-only. A field with the ASCII test tells the user of
    // any other character and yields nothing.
    void GetValue(EventRecord& record, bool honorSubCheck) override;

private:
    // `seven_bit_ascii` stands in the view, with whatever value: the 0 counts too. Kept.
    bool fTestsAscii = false;
};

} // namespace brixen::zeve
