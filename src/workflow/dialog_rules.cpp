#include "workflow/dialog_rules.h"

#include "toolkit/platform/toolkit_platform.h"

namespace brixen::pvn::pvn_workflow {

namespace {

// Exact styles: shown, enabled, reachable by Tab.
constexpr std::uint32_t kStyleShownDefaultButton = 0x50010001;
constexpr std::uint32_t kStyleShownButton = 0x50010000;

} // namespace

bool IsRightToLeft(std::string_view language) { return language == "ar_AE" || language == "he_IL"; }

void FocusDefaultButton(zeve::NativeWindow window) {
    namespace platform = zeve::platform;
    zeve::NativeWindow target = platform::ChildOfClassAndStyle(window, u"Button", kStyleShownDefaultButton);
    if (!target) target = platform::ChildOfClassAndStyle(window, u"Button", kStyleShownButton);
    if (!target) target = platform::TopChild(window);
    platform::Focus(target);
}

} // namespace brixen::pvn::pvn_workflow
