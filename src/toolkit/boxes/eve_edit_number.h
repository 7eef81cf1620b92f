// An edit field for numbers, whose value is a text.
#pragma once

#include "toolkit/boxes/eve_edit_text.h"
#include "toolkit/numbers/number_field.h"

namespace brixen::zeve {

class CEveEditNumber : public CEveEditText {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Takes a number text in any form.
    void SetValue(const EventRecord& record) override;
    // Stores the number in the form of the last value, with room for 255 bytes, unless the field is empty or
    // read-only or has a sub check that is not set. For a number beyond a limit it shows a message, waits for
    // the user and puts the closest number into the field.
    void GetValue(EventRecord& record, bool honorSubCheck) override;
    // Returns what the control shows as a number.
    [[nodiscard]] NumberField::Shown ShownNumber() const;

private:
    NumberField field{{}};
};

} // namespace brixen::zeve
