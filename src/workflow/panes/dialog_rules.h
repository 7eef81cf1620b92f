// What pane hosts and alerts have in common: how their dialogs are made, deleted and given the focus.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/zeve_callback.h"

#include <memory>
#include <string>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

// Deletes a dialog of the toolkit. If the callback of another dialog throws meanwhile, that exception ends
// the modal run of that dialog.
struct DeleteDialog {
    void operator()(zeve::ZeveDialog* dialog) const noexcept;
};
using OwnedDialog = std::unique_ptr<zeve::ZeveDialog, DeleteDialog>;

// Returns a dialog without view text, above `parent`, for a run in that language. The toolkit gets the
// language, and mirrors the layout, only if it is exactly a shipped locale that is read from right to left,
// such as "ar_AE".
OwnedDialog NewDialog(zeve::ZeveCallback callback, zeve::NativeWindow parent, const std::string& language);

// Makes the dialog of a view description, hidden, and returns its window. `params` goes to the callback.
// Throws if the view cannot be read or has no window, after a log line with the file of the view `name`.
zeve::NativeWindow MakeDialog(zeve::ZeveDialog& dialog, const std::string& text, const std::string& name,
                              void* params);

// Gives the focus to the dialog's default button, else to its first plain button, else to its first child.
void FocusDefaultButton(zeve::NativeWindow window);

} // namespace brixen::pvn::pvn_workflow
