#include "workflow/panes/dialog_rules.h"

#include "frame/shipped_languages.h"
#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"

namespace brixen::pvn::pvn_workflow {

namespace platform = zeve::platform;
namespace style = zeve::style;

namespace {

// Exact styles: shown, enabled, reachable by Tab.
constexpr std::uint32_t kShownButton = style::kChild | style::kVisible | style::kTabStop;
constexpr std::uint32_t kShownDefaultButton = kShownButton | style::kDefaultPushButton;

} // namespace

void DeleteDialog::operator()(zeve::ZeveDialog* dialog) const noexcept {
    try {
        zeve::ZeveDelete(dialog);
    } catch (...) {
        // See the header.
    }
}

OwnedDialog NewDialog(zeve::ZeveCallback callback, zeve::NativeWindow parent, const std::string& language) {
    zeve::ZeveInitRecord record;
    record.parentWindow = parent;
    record.callback = callback;
    record.instance = platform::LibraryModule();
    const ShippedLanguage* const shipped = FindShippedLanguage(language);
    if (shipped && shipped->isRightToLeft) record.language = language.c_str();
    return OwnedDialog(zeve::ZeveNew(&record));
}

void FocusDefaultButton(zeve::NativeWindow window) {
    zeve::NativeWindow target = platform::ChildOfClassAndStyle(window, u"Button", kShownDefaultButton);
    if (!target) target = platform::ChildOfClassAndStyle(window, u"Button", kShownButton);
    if (!target) target = platform::TopChild(window);
    platform::Focus(target);
}

} // namespace brixen::pvn::pvn_workflow
