// The table from control id to handler, and how one host extends that of another.
#include "workflow/panes/concrete_host.h"

#include "workflow/platform/message_numbers.h"

#include <gtest/gtest.h>

#include <optional>

namespace brixen::pvn::pvn_workflow {
namespace {

class BasePane : public PVNPane {};
class SpecialPane : public BasePane {};

class BaseHost : public PVNConcreteHost<BaseHost, BasePane> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    using PVNPaneHost::Press;
    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {{1, &BaseHost::OnOne}, {2, &BaseHost::OnTwo}};
        return kCommands;
    }
    bool& Repainted() { return RepaintedFlag(); }
    // Returns the result of the handler; no value if no row is for the notification.
    std::optional<std::intptr_t> Notify(std::uint16_t id, std::uint16_t code) {
        std::intptr_t result = 0;
        return HandleCommand({id, code}, result) ? std::optional(result) : std::nullopt;
    }

private:
    std::intptr_t OnOne() { return 11; }
    std::intptr_t OnTwo() { return 12; }
};

class ExtendedHost final : public PVNConcreteHost<ExtendedHost, SpecialPane, BaseHost> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {{2, &ExtendedHost::OnTwo},
                                                {3, &ExtendedHost::OnThree},
                                                {1, &ExtendedHost::OnFocus, kNotificationButtonHasFocus},
                                                {3, &ExtendedHost::OnFocus, kNotificationButtonHasFocus}};
        return kCommands;
    }
    bool& ExtendedRepainted() { return RepaintedFlag(); }

private:
    std::intptr_t OnTwo() { return 22; }
    std::intptr_t OnThree() { return 23; }
    std::intptr_t OnFocus() { return 24; }
};

TEST(ConcreteHost, FindsTheHandlerOfAnId) {
    BaseHost host("");
    EXPECT_EQ(host.Press(1), 11);
    EXPECT_EQ(host.Press(2), 12);
    EXPECT_EQ(host.Press(3), 0) << "there is none";
}

TEST(ConcreteHost, ExtendsTheTableOfItsBase) {
    ExtendedHost host("");
    EXPECT_EQ(host.Press(1), 11) << "of the base";
    EXPECT_EQ(host.Press(2), 22) << "its own comes first";
    EXPECT_EQ(host.Press(3), 23);
    EXPECT_EQ(host.Press(4), 0);
}

TEST(ConcreteHost, FindsTheHandlerOfEachUseOfAControl) {
    BaseHost host("");
    for (const int code : {0, 1, 0x300, 0x400}) {
        EXPECT_EQ(host.Notify(1, static_cast<std::uint16_t>(code)), 11) << code;
    }
}

// A static control sends 2 and 3 when it is enabled and disabled, a radio button 5 on a double click and 6
// and 7 with the focus, an edit control 0x100 and 0x200 with the focus.
TEST(ConcreteHost, LeavesNotificationsThatAreNoUseToTheSystem) {
    BaseHost host("");
    for (const int code : {2, 3, 4, 5, 6, 7, 8, 0x100, 0x200, 0x301, 0x401, 0x500, 0xFFFF}) {
        EXPECT_EQ(host.Notify(1, static_cast<std::uint16_t>(code)), std::nullopt) << code;
    }
}

TEST(ConcreteHost, FindsTheRowOfANamedNotification) {
    ExtendedHost host("");
    EXPECT_EQ(host.Notify(1, 6), 24);
    EXPECT_EQ(host.Notify(1, 0), 11) << "of the base: the row of the focus is no row of the press";
    EXPECT_EQ(host.Notify(3, 6), 24);
    EXPECT_EQ(host.Notify(3, 0), 23);
    EXPECT_EQ(host.Notify(2, 6), std::nullopt);
}

TEST(ConcreteHost, AcceptsPanesOfItsTypeOnly) {
    const PVNPane plain;
    const BasePane base;
    const SpecialPane special;
    EXPECT_FALSE(BaseHost("").Accepts(plain));
    EXPECT_TRUE(BaseHost("").Accepts(base));
    EXPECT_TRUE(BaseHost("").Accepts(special));
    EXPECT_FALSE(ExtendedHost("").Accepts(base));
    EXPECT_TRUE(ExtendedHost("").Accepts(special));
}

TEST(ConcreteHost, HasAFlagForTheRepaintOfItsOwn) {
    BaseHost base("");
    ExtendedHost extended("");
    base.Repainted() = true;
    EXPECT_FALSE(extended.ExtendedRepainted());
    EXPECT_TRUE(BaseHost("").Repainted());
    base.Repainted() = false;
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
