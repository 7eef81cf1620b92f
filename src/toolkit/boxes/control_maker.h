// The one routine by which all boxes but the dialog make their native control.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

struct ControlKind {
    const char16_t* className;
    std::uint32_t style;
    std::uint32_t extendedStyle;
};

// Makes the control of a bound box, gives it its icon and its font, and shows and enables it as the box and
// its parents want it. `win_style` and `win_ex_style` of the view take the place of the kind's styles. A
// control that the system refuses leaves the box with a null control and is no failure. Throws
// std::logic_error with the class name for any exception on the way, those of the host that were kept in
// window procedures included.
void MakeControl(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind);

// The same for a box that may carry a check box in front of its control (`wantsSubCheck`): the control gives
// way by 30 pixels, and the small check box is made after it. Throws std::logic_error "sub checkbox creation
// error!" for any exception on the way of the check box.
void MakeControlWithSubCheck(CEveBox& box, const CExpressionScope& attributes, const ControlKind& kind,
                             bool wantsSubCheck);
// Whether a check-box aware box that can be changed carries one.
bool WantsSubCheck(const CEveBox& box);

// `rtl_aware` of a field adds the styles of right-to-left text to its extended style.
std::uint32_t FieldStyle(const CExpressionScope& attributes, std::uint32_t extendedStyle);

} // namespace brixen::zeve
