// The table from control id to handler, and how one host extends that of another.
#include "workflow/panes/concrete_host.h"

#include <gtest/gtest.h>

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

private:
    std::intptr_t OnOne() { return 11; }
    std::intptr_t OnTwo() { return 12; }
};

class ExtendedHost final : public PVNConcreteHost<ExtendedHost, SpecialPane, BaseHost> {
public:
    using PVNConcreteHost::PVNConcreteHost;
    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {{2, &ExtendedHost::OnTwo}, {3, &ExtendedHost::OnThree}};
        return kCommands;
    }
    bool& ExtendedRepainted() { return RepaintedFlag(); }

private:
    std::intptr_t OnTwo() { return 22; }
    std::intptr_t OnThree() { return 23; }
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
