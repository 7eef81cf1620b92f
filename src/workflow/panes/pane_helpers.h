// The operations of panes and hosts on the controls of their dialog. A view id is a control id. An unknown id
// is harmless everywhere.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

// Shows the prefix of all titles, then the text of `key`, or of the common title if `key` is empty: at most
// 255 UTF-16 units.
void SetWindowTitle(const std::string& key, zeve::NativeWindow window);
// Shows a text in a control. `text` is UTF-8 and is not translated.
void SetControlText(zeve::ZeveDialog* dialog, std::uint16_t viewId, const std::string& text);
// Makes a button the one that Enter presses: it gets the frame and the focus.
// Intentional: the whole style is replaced, and the button counts as hidden until it is shown again.
void MakeDefaultButton(zeve::ZeveDialog* dialog, std::uint16_t viewId);
// Takes the frame of a default button away, in the same way.
void MakeNormalButton(zeve::ZeveDialog* dialog, std::uint16_t viewId);
// Names the small check box in front of a field, and gives it an access key: `text` is UTF-8, and none of it
// is visible. For the keyboard and for screen readers the check box is then before the field and its label.
void NameSubCheck(zeve::ZeveDialog* dialog, std::uint16_t viewId, const std::string& text);
// Centers the small check box in front of a field on it. In a right-to-left dialog both change places, so
// that the check box is on the side where reading begins.
void PlaceSubCheck(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool isRightToLeft);

// Returns whether the small check box in front of a field is set.
[[nodiscard]] bool IsSubCheckSet(zeve::ZeveDialog* dialog, std::uint16_t viewId);
// Enables or disables a field as its named check box is set or not. The access key of the field's label leads
// to the check box while the field is disabled, and the focus does too.
void FollowSubCheck(zeve::ZeveDialog* dialog, std::uint16_t viewId);

void AddTabStop(zeve::ZeveDialog* dialog, std::uint16_t viewId);
void SetVisible(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool visible);
void SetEnabled(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool enabled);

} // namespace brixen::pvn::pvn_workflow
