#include "workflow/catalogue/registration_panes.h"

#include "dictionaries/translation.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/registration_views.h"
#include "workflow/catalogue/text_checks.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/region.h"
#include "workflow/service/service_text.h"

namespace brixen::pvn::pvn_workflow::registration {

namespace {

constexpr std::uint16_t kIntroductionButtons[] = {kContinueButton, kLaterButton, kQuitButton};
constexpr std::uint16_t kDetailsButtons[] = {kBackButton, kRegisterButton, kLaterButton, kQuitButton};
constexpr std::uint16_t kRegisteredButtons[] = {kDoneButton};
constexpr std::uint16_t kProblemButtons[] = {kProblemBackButton, kTryAgainButton, kProblemLaterButton};
constexpr std::uint16_t kSettingsButtons[] = {kSettingsBackButton, kUseSettingsButton};

constexpr PageTraits kIntroductionTraits{"$$$/pvn/registration/introduction/window_title", kIntroductionPage,
                                         kIntroductionButtons, kContinueButton};
constexpr PageTraits kDetailsTraits{"$$$/pvn/registration/details/window_title", kDetailsPage,
                                    kDetailsButtons, kNoButton};
constexpr PageTraits kRegisteredTraits{"$$$/pvn/registration/registered/window_title", kRegisteredPage,
                                       kRegisteredButtons, kDoneButton};
} // namespace

constexpr PageTraits kSettingsTraits{"$$$/pvn/connection/settings/window_title", connection_settings::kPage,
                                     kSettingsButtons, kUseSettingsButton};
constexpr PageTraits kRegisteringTraits{
    "$$$/pvn/registration/registering/window_title", kRegisteringPage, {}, kNoButton};
constexpr BusyTraits kRegisteringBusy{kRegisterOperation, kBusyBar,    kBusyText,
                                      kCancelButton,      kCancelNote, kMessageStartWorker};

constexpr ProblemTraits kProblemTraits{
    .page = {"$$$/pvn/registration/problem/window_title", kProblemPage, kProblemButtons, kProblemBackButton},
    .text = kProblemText,
    .errorCode = kErrorCodeField,
    .denied = {"$$$/pvn/failure/registration_denied/what", "$$$/pvn/failure/registration_denied/try"},
    .kept = "$$$/pvn/registration/problem/kept",
    .settingsLink = kProblemConnectionLink,
};

IntroductionPane::IntroductionPane() : FieldPane(kIntroductionTraits) {}

void IntroductionPane::Enter() {
    AttachLink(privacyLink, kPrivacyLink);
    AttachLink(connectionLink, kConnectionLink);
    std::string product;
    GetString(*context, PvnWFKey_ProductName, product);
    SetControlText(
        ref, kProductText,
        zeve::ZeveTranslate("$$$/pvn/registration/introduction/product", 0, TextForStatic(product)));
    FieldPane::Enter();
}

DetailsPane::DetailsPane() : FieldPane(kDetailsTraits, kNameField) {}

void DetailsPane::Enter() {
    if (!isCountrySelected) SetControlText(ref, kCountryPopup, platform::UserCountry());
    isCountrySelected = true;
    firstFocus = ResultOf(*context) == kStatusServiceDenied ? kSerialField : kNameField;
    FieldPane::Enter();
}

bool DetailsPane::TakeEntries() {
    const RegistrationDetails details = ReadDetails();
    if (const std::optional<FieldFault> fault = FaultOfDetails(details)) {
        ShowFault(*fault);
        return false;
    }
    StoreDetails(*context, details);
    return true;
}

RegistrationDetails DetailsPane::ReadDetails() const {
    return {
        .name = LineOf(kNameField),
        .organization = LineOf(kOrganizationField),
        .email = LineOf(kEmailField),
        .serial = LineOf(kSerialField),
        .country = zeve::ZeveGetValue(ref, kCountryPopup, false).text.value_or(""),
        .wantsNews = zeve::ZeveGetValue(ref, kNewsCheckBox, false).number.value_or(0) == 1,
    };
}

std::u16string DetailsPane::LineOf(std::uint16_t field) const {
    return SendableLine(zeve::platform::TextOf(ControlOf(field)));
}

RegisteredPane::RegisteredPane() : FieldPane(kRegisteredTraits) {}

void RegisteredPane::Enter() {
    std::string number;
    GetString(*context, PvnWFKey_ConfirmationNumber, number);
    SetControlText(ref, kNumberField, number);
    FieldPane::Enter();
}

} // namespace brixen::pvn::pvn_workflow::registration
