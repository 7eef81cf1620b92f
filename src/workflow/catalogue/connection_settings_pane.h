// The pane of the connection settings, which Registration, Connection and Feedback share.
#pragma once

#include "workflow/catalogue/field_pane.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow {

// The longest texts of the settings, in bytes of UTF-8: what the record of a call holds.
inline constexpr std::size_t kLongestProxyHost = 128;
inline constexpr std::size_t kLongestProxyUserName = 32;
inline constexpr std::size_t kLongestProxyPassword = 32;

// The proxy of the system's settings, or one of the user's own. The choice is what the run has: host and port
// are its own proxy. What was typed stays in the fields when the user chooses the system's.
class ConnectionSettingsPane final : public FieldPane {
public:
    explicit ConnectionSettingsPane(const PageTraits& pageTraits);

    void Enter() override;
    // Marks the choice, and enables the fields of the user's own proxy.
    void Choose(std::uint16_t button);
    [[nodiscard]] bool TakeEntries() override;

private:
    bool HasOwnProxy() const;
    void ShowOwnProxy();
    bool TakeOwnProxy();
    void TakeSystemProxy();
    std::optional<FieldFault> FaultOfHost() const;
    std::optional<FieldFault> FaultOfLogIn() const;
    std::string TextOf(std::uint16_t field) const;
    void ShowText(std::uint16_t field, const char* key);
    void StoreText(std::uint16_t field, const char* key);
};

// Returns what is wrong with the name of a proxy server.
[[nodiscard]] std::optional<FieldFault> FaultOfProxyHost(const std::u16string& host);

} // namespace brixen::pvn::pvn_workflow
