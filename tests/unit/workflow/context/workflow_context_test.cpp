#include "dictionaries/translation.h"
#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "services/base_services.h"
#include "services/platform/posix/services_twin.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"
#include "workflow/context/workflow_context.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>

namespace brixen::pvn::pvn_workflow {
namespace {

// Read before main, and so before any test.
const bool gCancelAtStart = gProgressCancel;

TEST(Progress, NothingIsCanceledAtFirst) { EXPECT_FALSE(gCancelAtStart); }

class WorkFlowContext : public testing::Test {
protected:
    WorkFlowContext() : savedContext(GetFrameState().gPavaneContext) {
        GetFrameState().gPavaneContext = nullptr;
    }
    ~WorkFlowContext() override {
        GetFrameState().gPavaneContext = savedContext;
        gProgressCancel = false;
    }

    static std::optional<std::string> TextOf(T_StorageInterface& from, const char* key) {
        std::string text;
        return GetString(from, key, text) ? std::optional(text) : std::nullopt;
    }
    static std::optional<std::uint32_t> LongOf(T_StorageInterface& from, const char* key) {
        std::uint32_t value = 0;
        return GetLong(from, key, value) ? std::optional(value) : std::nullopt;
    }

    T_Storage bag;
    PVNWorkFlowContext context{bag};
    PavaneContext frame;

private:
    PavaneContext* savedContext;
};

TEST_F(WorkFlowContext, StoresItsValuesInTheWrappedBag) {
    SetLong(context, "number", 7);
    SetString(context, "text", "seven");
    EXPECT_EQ(LongOf(bag, "number"), 7u);
    EXPECT_EQ(TextOf(bag, "text"), "seven");
    SetLong(bag, "number", 8);
    EXPECT_EQ(LongOf(context, "number"), 8u);
    context.Remove("number", kValueTypeLong);
    EXPECT_EQ(LongOf(bag, "number"), std::nullopt);
}

TEST_F(WorkFlowContext, TheCancelFlagIsSetAndNeverStored) {
    EXPECT_TRUE(SetLong(context, PvnWFKey_CancelFlag, 1));
    EXPECT_TRUE(gProgressCancel);
    EXPECT_TRUE(SetLong(context, PvnWFKey_CancelFlag, 2));
    EXPECT_FALSE(gProgressCancel);
    EXPECT_TRUE(SetString(context, PvnWFKey_CancelFlag, "1"));
    EXPECT_FALSE(gProgressCancel);
    EXPECT_EQ(LongOf(bag, PvnWFKey_CancelFlag), std::nullopt);
    EXPECT_EQ(TextOf(bag, PvnWFKey_CancelFlag), std::nullopt);
    EXPECT_EQ(LongOf(context, PvnWFKey_CancelFlag), std::nullopt);
}

TEST_F(WorkFlowContext, TheProductNameOfTheLauncherIsKept) {
    SetString(bag, PvnWFKey_ProductName, "Painter");
    EXPECT_EQ(TextOf(context, PvnWFKey_ProductName), "Painter");
}

TEST_F(WorkFlowContext, AnAbsentProductNameBecomesThatOfTheApplication) {
    std::snprintf(frame.hostDisplayName, sizeof frame.hostDisplayName, "Studio");
    GetFrameState().gPavaneContext = &frame;
    EXPECT_EQ(TextOf(context, PvnWFKey_ProductName), "Studio");
    EXPECT_EQ(TextOf(bag, PvnWFKey_ProductName), "Studio");
    std::snprintf(frame.hostDisplayName, sizeof frame.hostDisplayName, "Other");
    EXPECT_EQ(TextOf(context, PvnWFKey_ProductName), "Studio");
}

TEST_F(WorkFlowContext, AnUnknownApplicationIsCalledProduct) {
    EXPECT_EQ(TextOf(context, PvnWFKey_ProductName), "Product");
    GetFrameState().gPavaneContext = &frame;
    context.Remove(PvnWFKey_ProductName, kValueTypeString);
    EXPECT_EQ(TextOf(context, PvnWFKey_ProductName), "Product");
}

TEST_F(WorkFlowContext, TheProductNameIsATextOnly) {
    EXPECT_EQ(LongOf(context, PvnWFKey_ProductName), std::nullopt);
    EXPECT_EQ(TextOf(bag, PvnWFKey_ProductName), std::nullopt);
}

TEST_F(WorkFlowContext, OtherAbsentKeysStayAbsent) {
    EXPECT_EQ(TextOf(context, "nothing"), std::nullopt);
    EXPECT_EQ(LongOf(context, "nothing"), std::nullopt);
}

TEST_F(WorkFlowContext, AnUnknownActionReturnsTheEmptyText) {
    for (const char* name :
         {"", "PvnWF_Unknown", "pvnwf_getformattedworkflowresult", "PvnWF_GetFormattedWorkflowResult "}) {
        EXPECT_EQ(context.Action(name), "") << name;
    }
}

TEST_F(WorkFlowContext, TheServicePathIsTheFolderOfTheBaseServicesOrNothing) {
    ResetServicesTwin();
    ResetServiceLoader();
    EXPECT_EQ(context.Action("PvnWFAction_GetSVHPath"), "");
    ResetServiceLoader();
    GetServicesTwin().files = {"C:\\Work\\svhservices.dll"};
    EXPECT_EQ(context.Action("PvnWFAction_GetSVHPath"), "C:\\Work");
    ResetServicesTwin();
    ResetServiceLoader();
}

TEST_F(WorkFlowContext, TheResultIsFormattedAsTwoDecimalBytes) {
    zeve::AddKeyValue("$$$/pvn/error/error_code_msg_mask=Code ^0!");
    EXPECT_EQ(context.Action("PvnWF_GetFormattedWorkflowResult"), "Code 0:0!") << "without a result";
    const std::pair<std::uint32_t, const char*> cases[] = {
        {0xD0A3, "Code 208:163!"}, {0, "Code 0:0!"}, {0x8902, "Code 137:2!"}, {0xFFFF00FF, "Code 0:255!"}};
    for (const auto& [code, text] : cases) {
        SetLong(context, PvnWFKey_WorkFlowResult, code);
        EXPECT_EQ(context.Action("PvnWF_GetFormattedWorkflowResult"), text);
    }
}

// A context of some workflow.
class ConcreteContext : public PVNWorkFlowContext {
public:
    using PVNWorkFlowContext::PVNWorkFlowContext;
    int timesComputed = 0, intercepted = 0;

protected:
    bool InterceptValue(std::string_view key, std::string_view typeName, const void* value) override {
        if (key != "acts" || typeName != kValueTypeLong) return false;
        intercepted = static_cast<int>(*static_cast<const std::uint32_t*>(value));
        return true;
    }
    bool ComputeValue(std::string_view key, std::string_view typeName) override {
        if (key != "computed" || typeName != kValueTypeLong) return false;
        ++timesComputed;
        return SetLong(*this, "computed", 42);
    }
    bool RunAction(std::string_view name, std::string& result) override {
        if (name != "PvnWFAction_IsReady") return false;
        result = "True";
        return true;
    }
};

TEST_F(WorkFlowContext, AConcreteContextComputesAValueOnce) {
    ConcreteContext concrete(bag);
    EXPECT_EQ(LongOf(concrete, "computed"), 42u);
    EXPECT_EQ(LongOf(concrete, "computed"), 42u);
    EXPECT_EQ(concrete.timesComputed, 1);
    EXPECT_EQ(LongOf(bag, "computed"), 42u);
    EXPECT_EQ(TextOf(concrete, "computed"), std::nullopt);
}

TEST_F(WorkFlowContext, AConcreteContextInterceptsKeysAndKnowsActions) {
    ConcreteContext concrete(bag);
    EXPECT_TRUE(SetLong(concrete, "acts", 5));
    EXPECT_EQ(concrete.intercepted, 5);
    EXPECT_EQ(LongOf(bag, "acts"), std::nullopt);
    EXPECT_EQ(concrete.Action("PvnWFAction_IsReady"), "True");
    EXPECT_EQ(concrete.Action("PvnWFAction_IsReady2"), "");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
