#include "workflow/platform/control_platform.h"

#include "workflow/platform/message_numbers.h"

#include <gtest/gtest.h>

namespace brixen::pvn::pvn_workflow::platform {
namespace {

TEST(Cursor, OfALinkIsTheHand) {
    EXPECT_NE(HandCursor(), nullptr);
    EXPECT_EQ(HandCursor(), HandCursor());
    ShowCursor(HandCursor());
    ShowCursor(nullptr);
}

TEST(UserSetting, OfAMissingKeyOrValueIsNothing) {
    EXPECT_FALSE(ReadUserSetting(u"Software\\Brixen\\No such key", u"Value"));
    EXPECT_FALSE(ReadUserSetting(u"Software", u"No such value"));
}

TEST(Tooltips, AreHarmlessWithoutAWindow) {
    SetTooltip(nullptr, nullptr, {0, 0, 10, 10}, u"text");
    RelayToTooltip(nullptr, nullptr, kMessageMouseMove, 0, 0);
    AskForMouseLeave(nullptr);
    (void)MouseIn(nullptr);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow::platform
