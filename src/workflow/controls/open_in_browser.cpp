#include "workflow/controls/open_in_browser.h"

#include "dictionaries/translation.h"
#include "values/platform/values_platform.h"
#include "values/storage.h"
#include "workflow/controls/openable_target.h"
#include "workflow/platform/control_platform.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

#include <array>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kAddressUnits = 1024; // with the terminator

// Empty for a text that is too long or no text in the code page.
std::u16string FromMachineCodePage(std::string_view text) {
    std::array<char16_t, kAddressUnits> units{};
    const auto converted =
        lyr::gen::CodePageToWide(lyr::gen::kCodePageProcess, text, units.data(), kAddressUnits - 1);
    if (converted.status != lyr::gen::CodePageStatus::kDone) return {};
    return {units.data(), converted.length};
}

} // namespace

void OpenInBrowser(const std::u16string& target) {
    if (!IsOpenable(target)) return;
    // Neither an address nor a path can hold a quote.
    const std::u16string argument = u"\"" + target + u"\"";
    if (platform::StartProgram(u"iexplore.exe", argument.c_str(), kShowRestored)) return;
    platform::OpenWithShell(target.c_str());
}

void OpenContextAddress(T_StorageInterface& context, std::string_view key) {
    std::string address;
    if (GetString(context, key, address)) OpenInBrowser(FromMachineCodePage(address));
}

void OpenTextAddress(std::string_view key) { OpenInBrowser(FromMachineCodePage(zeve::ZeveTranslate(key))); }

void OpenLocalPage(const std::string& name) {
    const std::u16string path = FindLocalPage(name);
    if (!path.empty()) OpenInBrowser(path);
}

} // namespace brixen::pvn::pvn_workflow
