#include "frame/exports/kept_proxy.h"

#include "net/transport/communication_detail.h"
#include "support/failing_allocator.h"
#include "unit/frame/exports/exports_fixture.h"

#include <optional>

namespace brixen::pvn {
namespace {

// The proxy keys of a bag.
struct Proxy {
    std::optional<std::string> host, userName, password;
    std::optional<std::uint32_t> port;
    bool operator==(const Proxy&) const = default;
};

Proxy ProxyOf(T_StorageInterface& bag) {
    Proxy proxy;
    const auto read = [&bag](const char* key, std::optional<std::string>& out) {
        std::string text;
        if (GetString(bag, key, text)) out = text;
    };
    read(PvnWFKey_ProxyHost, proxy.host);
    read(PvnWFKey_ProxyUserName, proxy.userName);
    read(PvnWFKey_ProxyPassword, proxy.password);
    std::uint32_t port = 0;
    if (GetLong(bag, PvnWFKey_ProxyPort, port)) proxy.port = port;
    return proxy;
}

const Proxy kProxy{"proxy.example.com", "ann", "a long and secret password", 8080};

void SetProxy(T_StorageInterface& bag) {
    SetString(bag, PvnWFKey_ProxyHost, *kProxy.host);
    SetLong(bag, PvnWFKey_ProxyPort, *kProxy.port);
    SetString(bag, PvnWFKey_ProxyUserName, *kProxy.userName);
    SetString(bag, PvnWFKey_ProxyPassword, *kProxy.password);
}

class KeptProxyTest : public Exports {
protected:
    KeptProxyTest() { gEngine = {}; }

    // Runs the workflow, notes the proxy that it starts with, and has it do that.
    Proxy RunWith(std::uint16_t number, std::function<void(T_StorageInterface&)> action = {}) {
        Proxy start;
        gEngine.run = [&](T_StorageInterface& bag) {
            start = ProxyOf(bag);
            if (action) action(bag);
            return status;
        };
        EXPECT_EQ(Pavane_RunWorkflow(number, nullptr), status);
        return start;
    }

    Status status = kStatusSuccess;
};

TEST_F(KeptProxyTest, TheFirstRunHasNone) {
    Pavane_Initialize(0, 0);
    EXPECT_EQ(RunWith(2), Proxy());
    EXPECT_EQ(RunWith(2), Proxy());
}

TEST_F(KeptProxyTest, TheNextRunsHaveTheProxyThatARunLeft) {
    Pavane_Initialize(0, 0);
    RunWith(2, SetProxy);
    EXPECT_EQ(RunWith(2), kProxy);
    EXPECT_EQ(RunWith(2), kProxy);
}

TEST_F(KeptProxyTest, AFailedRunLeavesItsProxyToo) {
    Pavane_Initialize(0, 0);
    status = kStatusCallTimedOut;
    RunWith(2, SetProxy);
    GetFrameState().gLastError = kStatusSuccess;
    EXPECT_EQ(RunWith(2), kProxy);
}

TEST_F(KeptProxyTest, AWorkflowWithoutCallsNeitherSeesNorChangesIt) {
    Pavane_Initialize(0, 0);
    RunWith(2, SetProxy);
    EXPECT_EQ(RunWith(1, [](T_StorageInterface& bag) { SetString(bag, PvnWFKey_ProxyHost, "other"); }),
              Proxy());
    EXPECT_EQ(RunWith(2), kProxy);
}

TEST_F(KeptProxyTest, ARunThatRemovesHostOrPortLeavesNone) {
    Pavane_Initialize(0, 0);
    RunWith(2, SetProxy);
    RunWith(2, [](T_StorageInterface& bag) { bag.Remove(PvnWFKey_ProxyHost, kValueTypeString); });
    EXPECT_EQ(RunWith(2), Proxy());
    RunWith(2, SetProxy);
    RunWith(2, [](T_StorageInterface& bag) { bag.Remove(PvnWFKey_ProxyPort, kValueTypeLong); });
    EXPECT_EQ(RunWith(2), Proxy());
}

TEST_F(KeptProxyTest, ARunThatRemovesThePasswordLeavesNoPassword) {
    Pavane_Initialize(0, 0);
    RunWith(2, SetProxy);
    RunWith(2, [](T_StorageInterface& bag) { bag.Remove(PvnWFKey_ProxyPassword, kValueTypeString); });
    EXPECT_EQ(RunWith(2).password, std::nullopt);
}

TEST_F(KeptProxyTest, TerminatingForgetsIt) {
    Pavane_Initialize(0, 0);
    RunWith(2, SetProxy);
    Pavane_Terminate();
    Pavane_Initialize(0, 0);
    EXPECT_EQ(RunWith(2), Proxy());
}

TEST_F(KeptProxyTest, ThePasswordOfTheBagIsWiped) {
    Pavane_Initialize(0, 0);
    T_Storage bag;
    SetProxy(bag);
    KeepProxyOf(bag);
    EXPECT_EQ(ProxyOf(bag).password, std::nullopt);
    EXPECT_EQ(ProxyOf(bag).host, kProxy.host);
    T_Storage next;
    PutKeptProxy(next);
    EXPECT_EQ(ProxyOf(next), kProxy);
}

TEST_F(KeptProxyTest, WithoutMemoryNothingIsKeptAndThePasswordIsWipedAllTheSame) {
    Pavane_Initialize(0, 0);
    int failures = 0;
    for (std::size_t n = 1;; ++n) {
        T_Storage bag, next;
        SetProxy(bag);
        bool hasFailed = false;
        {
            const pavane_test::FailNthAllocation failure(n);
            KeepProxyOf(bag);
            hasFailed = failure.HasFailed();
        }
        EXPECT_EQ(ProxyOf(bag).password, std::nullopt) << n;
        PutKeptProxy(next);
        EXPECT_EQ(ProxyOf(next), hasFailed ? Proxy() : kProxy) << n;
        if (!hasFailed) break;
        ++failures;
    }
    EXPECT_GE(failures, 4);
}

} // namespace
} // namespace brixen::pvn
