#include "workflow/panes/dialog_rules.h"

#include "frame/log.h"
#include "frame/shipped_languages.h"
#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/resources/resource_layer.h"

#include <exception>
#include <new>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

namespace toolkit_platform = zeve::platform;
namespace style = zeve::style;

namespace {

// Exact styles: shown, enabled, reachable by Tab.
constexpr std::uint32_t kShownButton = style::kChild | style::kVisible | style::kTabStop;
constexpr std::uint32_t kShownDefaultButton = kShownButton | style::kDefaultPushButton;

// `problem` differs from the line for a missing view, which the resource layer logs.
void LogView(const char* problem, const std::string& name, const char* reason) {
    PvnLog("%s: %s: %s(File: %s, Reason: %s)\n", kLogComponent, kLogInfo, problem,
           FindViewDescription(name).c_str(), reason);
}

zeve::NativeWindow ReadView(zeve::ZeveDialog& dialog, const std::string& text, const std::string& name,
                            void* params) {
    try {
        zeve::ZeveAddViewText(&dialog, text.c_str());
        return zeve::ZeveMakeDialog(&dialog, params);
    } catch (const std::bad_alloc&) {
        throw; // the view is not to blame
    } catch (const std::exception& failure) {
        LogView("View cannot be read", name, failure.what());
        throw;
    }
}

} // namespace

void DeleteDialog::operator()(zeve::ZeveDialog* dialog) const noexcept { zeve::ZeveDelete(dialog); }

OwnedDialog NewDialog(zeve::ZeveCallback callback, zeve::NativeWindow parent, const std::string& language) {
    zeve::ZeveInitRecord record;
    record.parentWindow = parent;
    record.callback = callback;
    record.instance = toolkit_platform::LibraryModule();
    const ShippedLanguage* const shipped = FindShippedLanguage(language);
    if (shipped && shipped->isRightToLeft) record.language = language.c_str();
    return OwnedDialog(zeve::ZeveNew(&record));
}

zeve::NativeWindow MakeDialog(zeve::ZeveDialog& dialog, const std::string& text, const std::string& name,
                              void* params) {
    const zeve::NativeWindow window = ReadView(dialog, text, name, params);
    if (window) return window;
    LogView("View has no window", name, "its root is no dialog, or the system refused it");
    throw std::runtime_error("the dialog has no window");
}

void FocusDefaultButton(zeve::NativeWindow window) {
    zeve::NativeWindow target =
        toolkit_platform::ChildOfClassAndStyle(window, u"Button", kShownDefaultButton);
    if (!target) target = toolkit_platform::ChildOfClassAndStyle(window, u"Button", kShownButton);
    if (!target) target = toolkit_platform::TopChild(window);
    toolkit_platform::Focus(target);
}

} // namespace brixen::pvn::pvn_workflow
