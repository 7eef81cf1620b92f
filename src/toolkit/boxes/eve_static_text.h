// A label: text that the user cannot change.
#pragma once

#include "toolkit/boxes/eve_box.h"

namespace brixen::zeve {

// Without `height` the box is as high as its text. The control breaks lines between words; only with
// `whole_words` is the text measured so. A view names it once for all of its labels.
class CEveStaticText : public CEveBox {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // Takes a text.
    void SetValue(const EventRecord& record) override;
    // Stores the text shown, unless it is empty or the box is check-box aware.
    void GetValue(EventRecord& record, bool honorSubCheck) override;

protected:
    // Makes the control, one pixel further up and one pixel higher than the layout says.
    void MakeLabel(CExpressionScope& attributes);
};

} // namespace brixen::zeve
