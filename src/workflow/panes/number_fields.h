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
// shows its message and then the closest value, and gets the focus. After a correction no further field is
// read, so the user sees one message a click, and the button does nothing more:
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
    // read-only or has a sub check that is not set, for an unknown id, and after a correction.
    [[nodiscard]] std::optional<std::string> Read(std::uint16_t viewId);
    // Reads the field in the same way, but returns the number that it shows, as the user sees it: without the
    // add-in and blanks, with a point as the decimal sign. In a photographic field this is a time or an
    // f-number, and the value may be a logarithm. It may be no number.
    [[nodiscard]] std::optional<std::string> ReadShown(std::uint16_t viewId);
    [[nodiscard]] bool HasCorrected() const { return hasCorrected; }

private:
    zeve::ZeveDialog* dialog;
    bool hasCorrected = false;
};

} // namespace brixen::pvn::pvn_workflow
