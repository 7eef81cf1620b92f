// Makes the native control of every box but the dialog.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

// The window class and styles of a control.
struct ControlKind {
    const char16_t* className;
    std::uint32_t style;
    std::uint32_t extendedStyle;
};

// Makes the control of a bound box, gives it its icon and its font, and shows and enables it as the box and
// its parents ask. The view's `win_style` and `win_ex_style` replace the kind's styles. If the system refuses
// the control, the box has a null control and nothing is thrown. Throws std::logic_error with the class name
// in place of any exception during the making, exceptions kept by window procedures included.
void MakeControl(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind);

// Does the same for a box that may have a small check box in front of its control (`wantsSubCheck`). The
// control then starts 30 pixels further right and ends where it did; the check box is made after it. Throws
// std::logic_error "sub checkbox creation error!" in place of any exception during the making of the check
// box.
void MakeControlWithSubCheck(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind,
                             bool wantsSubCheck);
// Whether a box has one: it is check-box aware and not read-only.
[[nodiscard]] bool WantsSubCheck(const CEveBox& box);

// Makes a group box, for boxes that only draw a frame with a title.
void MakeGroupBox(CEveBox& box, const CExpressionScope& attributes);

// The extended style of a field: with `rtl_aware`, the styles of right-to-left text are added.
[[nodiscard]] std::uint32_t FieldStyle(const CExpressionScope& attributes, std::uint32_t extendedStyle);

} // namespace brixen::zeve
