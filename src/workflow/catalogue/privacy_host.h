// The dialog window of Privacy.
#pragma once

#include "workflow/catalogue/privacy_panes.h"
#include "workflow/panes/concrete_host.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

struct PrivacyData;

namespace privacy {

inline constexpr std::string_view kEventContinue = "Continue";
inline constexpr std::string_view kEventMissing = "StatementMissing";
inline constexpr std::string_view kEventAccept = "AcceptButton";
inline constexpr std::string_view kEventDecline = "DeclineButton";
inline constexpr std::string_view kEventCancel = "CancelButton";

} // namespace privacy

class PVNPrivacyHost final : public PVNConcreteHost<PVNPrivacyHost, privacy::PrivacyPane> {
public:
    // Takes the view description. `runData` is borrowed.
    PVNPrivacyHost(std::string text, const PrivacyData& runData);

    static std::span<const Command> Commands();

    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;

private:
    void OnFirstFocus() override;
    std::intptr_t OnKeyInField(std::uintptr_t key);

    std::intptr_t OnContinue();
    std::intptr_t OnBack();
    std::intptr_t OnAccept();
    std::intptr_t OnDecline();
    std::intptr_t OnCancel();
    std::intptr_t OnEnterKey();
    std::intptr_t Leave(std::uint32_t status, std::string_view event);

    const PrivacyData& data;
};

} // namespace brixen::pvn::pvn_workflow
