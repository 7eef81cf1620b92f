#include "workflow/catalogue/connection_panes.h"

#include "dictionaries/translation.h"
#include "workflow/catalogue/connection_data.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/connection_views.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/service/service_text.h"

namespace brixen::pvn::pvn_workflow::connection {

namespace {

constexpr std::uint16_t kSettingsButtons[] = {kTestButton, kCancelButton};
constexpr std::uint16_t kReachedButtons[] = {kReachedBackButton, kReachedDoneButton};
constexpr std::uint16_t kUnreachedButtons[] = {kUnreachedBackButton, kTryAgainButton, kUnreachedDoneButton};

constexpr std::uint32_t kMillisecondsOfTenth = 100;

constexpr PageTraits kReachedTraits{"$$$/pvn/connection/reached/window_title", kReachedPage, kReachedButtons,
                                    kReachedDoneButton};

// From one second on in seconds; the words have the decimal mark of their language.
std::string WordsOfTime(const std::string& product, std::uint32_t milliseconds) {
    if (milliseconds < 1000) {
        return zeve::ZeveTranslate("$$$/pvn/connection/reached/text",
                                   {product, std::to_string(milliseconds)});
    }
    const std::uint32_t tenths = milliseconds / kMillisecondsOfTenth +
                                 (milliseconds % kMillisecondsOfTenth >= kMillisecondsOfTenth / 2);
    return zeve::ZeveTranslate("$$$/pvn/connection/reached/seconds",
                               {product, std::to_string(tenths / 10), std::to_string(tenths % 10)});
}

} // namespace

constexpr PageTraits kSettingsTraits{"$$$/pvn/connection/settings/window_title", connection_settings::kPage,
                                     kSettingsButtons, kNoButton};
constexpr PageTraits kTestingTraits{"$$$/pvn/connection/testing/window_title", kTestingPage, {}, kNoButton};
constexpr BusyTraits kTestingBusy{kTestOperation,    kBusyBar,    kBusyText,
                                  kCancelTestButton, kCancelNote, kMessageStartSecondWorker};

constexpr ProblemTraits kUnreachedTraits{
    .page = {"$$$/pvn/connection/unreached/window_title", kUnreachedPage, kUnreachedButtons,
             kUnreachedBackButton},
    .text = kUnreachedText,
    .errorCode = kErrorCodeField,
    .denied = {"$$$/pvn/failure/connection_denied/what", "$$$/pvn/failure/connection_denied/try"},
    .kept = "$$$/pvn/connection/unreached/kept",
    .settingsLink = FieldPane::kNoControl,
};

ReachedPane::ReachedPane() : FieldPane(kReachedTraits) {}

void ReachedPane::Enter() {
    std::string product;
    GetString(*context, PvnWFKey_ProductName, product);
    std::uint32_t milliseconds = 0;
    GetLong(*context, PvnWFKey_ConnectionTime, milliseconds);
    SetControlText(ref, kReachedText,
                   WordsOfTime(TextForStatic(product), milliseconds) + "\n\n" +
                       zeve::ZeveTranslate("$$$/pvn/connection/reached/kept"));
    FieldPane::Enter();
}

} // namespace brixen::pvn::pvn_workflow::connection
