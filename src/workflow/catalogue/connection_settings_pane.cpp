#include "workflow/catalogue/connection_settings_pane.h"

#include "net/transport/communication_detail.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/scope_guard.h"
#include "values/unicode/lenient_text.h"
#include "values/unicode/text_conversion.h"
#include "values/wipe.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/text_checks.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/number_fields.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/panes/radio_group.h"

namespace brixen::pvn::pvn_workflow {

using namespace connection_settings;

namespace {

constexpr std::uint16_t kChoices[] = {kSystemProxy, kOwnProxy};

constexpr FieldAlert kHostMissing{"$$$/pvn/alert/host_missing/title", "$$$/pvn/alert/host_missing/text"};
constexpr FieldAlert kHostMalformed{"$$$/pvn/alert/host_malformed/title",
                                    "$$$/pvn/alert/host_malformed/text"};
constexpr FieldAlert kHostLong{"$$$/pvn/alert/host_long/title", "$$$/pvn/alert/host_long/text"};
constexpr FieldAlert kPortMissing{"$$$/pvn/alert/port_missing/title", "$$$/pvn/alert/port_missing/text"};
constexpr FieldAlert kPortMalformed{"$$$/pvn/alert/port_malformed/title",
                                    "$$$/pvn/alert/port_malformed/text"};
constexpr FieldAlert kUserNameLong{"$$$/pvn/alert/user_name_long/title", "$$$/pvn/alert/user_name_long/text"};
constexpr FieldAlert kPasswordLong{"$$$/pvn/alert/password_long/title", "$$$/pvn/alert/password_long/text"};

} // namespace

std::optional<FieldFault> FaultOfProxyHost(const std::u16string& host) {
    if (host.empty()) return FieldFault{kHostField, kHostMissing};
    if (!IsHostName(host)) return FieldFault{kHostField, kHostMalformed};
    if (lyr::gen::LenientUtf8(host.c_str()).size() > kLongestProxyHost)
        return FieldFault{kHostField, kHostLong};
    return std::nullopt;
}

ConnectionSettingsPane::ConnectionSettingsPane(const PageTraits& pageTraits)
    : FieldPane(pageTraits, kSystemProxy) {}

void ConnectionSettingsPane::Enter() {
    const bool isOwn = HasOwnProxy();
    firstFocus = isOwn ? kHostField : kSystemProxy;
    if (isOwn) ShowOwnProxy();
    JoinRadioButtons(ref, kChoices);
    FieldPane::Enter();
    Choose(isOwn ? kOwnProxy : kSystemProxy);
}

bool ConnectionSettingsPane::HasOwnProxy() const {
    const char* host = nullptr;
    std::uint32_t port = 0;
    return context->Get(PvnWFKey_ProxyHost, kValueTypeString, &host) &&
           GetLong(*context, PvnWFKey_ProxyPort, port);
}

void ConnectionSettingsPane::ShowOwnProxy() {
    ShowText(kHostField, PvnWFKey_ProxyHost);
    ShowText(kUserNameField, PvnWFKey_ProxyUserName);
    ShowText(kPasswordField, PvnWFKey_ProxyPassword);
    std::uint32_t port = 0;
    if (GetLong(*context, PvnWFKey_ProxyPort, port)) SetControlText(ref, kPortField, std::to_string(port));
}

// The text of a password is in no other place than the control, the bag, and this one, which is wiped.
void ConnectionSettingsPane::ShowText(std::uint16_t field, const char* key) {
    const char* text = "";
    context->Get(key, kValueTypeString, &text);
    std::u16string wide = lyr::gen::ToUtf16(text, true);
    const ScopeGuard wipe([&wide]() noexcept { Wipe(wide); });
    zeve::platform::SetText(ControlOf(field), wide.c_str());
}

void ConnectionSettingsPane::Choose(std::uint16_t button) {
    MarkRadioButton(ref, kChoices, button);
    SetEnabled(ref, kProxyGroup, button == kOwnProxy);
}

bool ConnectionSettingsPane::TakeEntries() {
    if (MarkedRadioButton(ref, kChoices) == kOwnProxy) return TakeOwnProxy();
    TakeSystemProxy();
    return true;
}

void ConnectionSettingsPane::TakeSystemProxy() {
    context->Remove(PvnWFKey_ProxyHost, kValueTypeString);
    context->Remove(PvnWFKey_ProxyPort, kValueTypeLong);
    context->Remove(PvnWFKey_ProxyUserName, kValueTypeString);
    RemoveSecret(*context, PvnWFKey_ProxyPassword);
}

bool ConnectionSettingsPane::TakeOwnProxy() {
    std::optional<FieldFault> fault = FaultOfHost();
    std::optional<std::uint16_t> port;
    if (!fault) {
        NumberFieldReader fields(ref);
        const bool isFilled = fields.Read(kPortField).has_value();
        if (fields.HasCorrected()) return false;
        // A number field takes other forms too, such as `5e4`, and ignores what follows a number.
        port = PortOf(zeve::platform::TextOf(ControlOf(kPortField)));
        if (port)
            fault = FaultOfLogIn();
        else
            fault = FieldFault{kPortField, isFilled ? kPortMalformed : kPortMissing};
    }
    if (fault) {
        ShowFault(*fault);
        return false;
    }
    StoreText(kHostField, PvnWFKey_ProxyHost);
    StoreText(kUserNameField, PvnWFKey_ProxyUserName);
    StoreText(kPasswordField, PvnWFKey_ProxyPassword);
    SetLong(*context, PvnWFKey_ProxyPort, *port);
    return true;
}

std::optional<FieldFault> ConnectionSettingsPane::FaultOfHost() const {
    return FaultOfProxyHost(zeve::platform::TextOf(ControlOf(kHostField)));
}

std::optional<FieldFault> ConnectionSettingsPane::FaultOfLogIn() const {
    std::string userName = TextOf(kUserNameField), password = TextOf(kPasswordField);
    const ScopeGuard wipe([&]() noexcept { Wipe(password); });
    if (userName.size() > kLongestProxyUserName) return FieldFault{kUserNameField, kUserNameLong};
    if (password.size() > kLongestProxyPassword) return FieldFault{kPasswordField, kPasswordLong};
    return std::nullopt;
}

std::string ConnectionSettingsPane::TextOf(std::uint16_t field) const {
    std::u16string wide = zeve::platform::TextOf(ControlOf(field));
    const ScopeGuard wipe([&wide]() noexcept { Wipe(wide); });
    return lyr::gen::LenientUtf8(wide.c_str());
}

// An empty text is an absent key.
void ConnectionSettingsPane::StoreText(std::uint16_t field, const char* key) {
    std::string text = TextOf(field);
    const ScopeGuard wipe([&text]() noexcept { Wipe(text); });
    RemoveSecret(*context, key);
    if (!text.empty()) SetString(*context, key, text);
}

} // namespace brixen::pvn::pvn_workflow
