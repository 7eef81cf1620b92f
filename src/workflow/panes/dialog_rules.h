// What pane hosts and alerts do alike.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/zeve_callback.h"

#include <memory>
#include <string>

namespace brixen::zeve {
class ZeveDialog;
}

namespace brixen::pvn::pvn_workflow {

// Deletes a dialog of the toolkit. What a callback throws then is dropped: the dialog is gone all the same,
// and the user has answered.
struct DeleteDialog {
    void operator()(zeve::ZeveDialog* dialog) const noexcept;
};
using OwnedDialog = std::unique_ptr<zeve::ZeveDialog, DeleteDialog>;

// Returns a dialog without view text, above `parent`, for a run in that language. The toolkit gets the
// language, and lays out from right to left, only if it is exactly a shipped locale that is read so, such as
// "ar_AE".
OwnedDialog NewDialog(zeve::ZeveCallback callback, zeve::NativeWindow parent, const std::string& language);

// Gives the focus to the dialog's default button, else to its first plain button, else to its first child.
void FocusDefaultButton(zeve::NativeWindow window);

} // namespace brixen::pvn::pvn_workflow
