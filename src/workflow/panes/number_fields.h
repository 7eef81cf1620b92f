// Reads the number fields of a pane after a click on one of its buttons.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

// Reads the fields of one click, in the order of the calls. A number beyond a limit is corrected: the field
// shows its message and then the closest value, as a user would write it, and gets the focus. Read without a
// change, that value is in range. After a correction no further field is read, so the user sees one message a
// click, and the button does nothing more:
//
//     NumberFieldReader fields(ref);
//     const auto speed = fields.Read(kSpeed);
//     const auto angle = fields.Read(kAngle);
//     if (fields.HasCorrected()) return;
//
// Throws what ZeveGetValue throws.
class NumberFieldReader {
public:
    // Borrows the dialog.
    explicit NumberFieldReader(zeve::ZeveDialog* dialog) : dialog(dialog) {}

    // Returns the value in the form in which it was set. Returns no value for a field that is blank or
    // read-only or has a sub check that is not set, for an unknown id, and after a correction. The field
    // takes a text without a number for 0: look at zeve::ZeveShownNumber first where the closest value to 0
    // would surprise.
    [[nodiscard]] std::optional<std::string> Read(std::uint16_t viewId);
    [[nodiscard]] bool HasCorrected() const { return hasCorrected; }

private:
    zeve::ZeveDialog* dialog;
    bool hasCorrected = false;
};

} // namespace brixen::pvn::pvn_workflow
