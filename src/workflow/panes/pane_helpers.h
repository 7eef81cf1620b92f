// What panes and hosts do to the controls of their dialog. View ids are control ids. An id that no control
// has is harmless everywhere.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

// The prefix that all titles share, then the text of `key`, or of the common title if that is empty. At most
// 255 UTF-16 units are shown.
void SetWindowTitle(const std::string& key, zeve::NativeWindow window);
// Shows a text in a control; `text` is shown as it is.
void SetControlText(zeve::ZeveDialog* dialog, std::uint16_t viewId, const std::string& text);
// The button that Enter presses: it gets the frame and the focus. Replaces the whole style (meant): the
// control counts as hidden until its group is shown.
void MakeDefaultButton(zeve::ZeveDialog* dialog, std::uint16_t viewId);
void MakeNormalButton(zeve::ZeveDialog* dialog, std::uint16_t viewId);
void AddTabStop(zeve::ZeveDialog* dialog, std::uint16_t viewId);
void SetVisible(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool visible);
void SetEnabled(zeve::ZeveDialog* dialog, std::uint16_t viewId, bool enabled);

} // namespace brixen::pvn::pvn_workflow
