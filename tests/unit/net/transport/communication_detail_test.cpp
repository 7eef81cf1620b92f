#include "net/transport/communication_detail.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <string>

namespace brixen::pvn {
namespace {

class ReadDetail : public testing::Test {
protected:
    void FillBag() {
        SetString(bag, "PvnWFKey_ProxyHost", "proxy.test");
        SetLong(bag, "PvnWFKey_ProxyPort", 3128);
        SetString(bag, "PvnWFKey_ProxyUserName", "someone");
        SetString(bag, "PvnWFKey_ProxyPassword", "secret");
    }
    CommunicationDetail Read() {
        CommunicationDetail detail;
        std::memset(detail.proxyHost, 'x', sizeof detail.proxyHost);
        std::memset(detail.proxyPassword, 'x', sizeof detail.proxyPassword);
        detail.proxyPort = 7;
        status = ReadCommunicationDetail(detail, bag);
        return detail;
    }
    void ExpectSystemsProxy() {
        const CommunicationDetail detail = Read();
        EXPECT_EQ(status, kStatusSuccess);
        EXPECT_EQ(detail.useOsProxy, 1);
        EXPECT_EQ(detail.proxyPort, 0);
        EXPECT_STREQ(detail.proxyHost, "");
        EXPECT_STREQ(detail.proxyUserName, "");
        EXPECT_STREQ(detail.proxyPassword, "");
        EXPECT_EQ(detail.timeoutSeconds, 60);
    }

    T_Storage bag;
    Status status = 1;
};

TEST_F(ReadDetail, WithHostAndPortTheUsersProxyCounts) {
    FillBag();
    const CommunicationDetail detail = Read();
    EXPECT_EQ(status, kStatusSuccess);
    EXPECT_EQ(detail.useOsProxy, 0);
    EXPECT_EQ(detail.proxyPort, 3128);
    EXPECT_STREQ(detail.proxyHost, "proxy.test");
    EXPECT_STREQ(detail.proxyUserName, "someone");
    EXPECT_STREQ(detail.proxyPassword, "secret");
    EXPECT_EQ(detail.timeoutSeconds, 60);
}

TEST_F(ReadDetail, WithoutHostOrPortTheSystemsProxyCounts) {
    ExpectSystemsProxy();
    FillBag();
    bag.Remove("PvnWFKey_ProxyHost", kValueTypeString);
    ExpectSystemsProxy();
    FillBag();
    bag.Remove("PvnWFKey_ProxyPort", kValueTypeLong);
    ExpectSystemsProxy();
}

TEST_F(ReadDetail, AUserNameAloneChangesNothing) {
    SetString(bag, "PvnWFKey_ProxyUserName", "someone");
    ExpectSystemsProxy();
}

TEST_F(ReadDetail, PresenceCountsAndNotContent) {
    SetString(bag, "PvnWFKey_ProxyHost", "");
    SetLong(bag, "PvnWFKey_ProxyPort", 0);
    EXPECT_EQ(Read().useOsProxy, 0);
    SetLong(bag, "PvnWFKey_UseUserProxySetting", 0);
    EXPECT_EQ(Read().useOsProxy, 0);
}

TEST_F(ReadDetail, TextsAreCutToTheirFields) {
    FillBag();
    SetString(bag, "PvnWFKey_ProxyHost", std::string(128, 'h') + "!");
    SetString(bag, "PvnWFKey_ProxyUserName", std::string(32, 'u') + "!");
    SetString(bag, "PvnWFKey_ProxyPassword", std::string(32, 'p') + "!");
    SetLong(bag, "PvnWFKey_ProxyPort", 0xFFFFFFFF);
    const CommunicationDetail detail = Read();
    EXPECT_EQ(detail.proxyHost, std::string(128, 'h'));
    EXPECT_EQ(detail.proxyUserName, std::string(32, 'u'));
    EXPECT_EQ(detail.proxyPassword, std::string(32, 'p'));
    EXPECT_EQ(detail.proxyPort, -1);
}

TEST_F(ReadDetail, AHostThatWasCutIsAnotherHost) {
    FillBag();
    SetString(bag, "PvnWFKey_ProxyHost", std::string(129, 'h'));
    static_cast<void>(Read());
    EXPECT_EQ(status, kStatusNameNotResolved);
    SetString(bag, "PvnWFKey_ProxyHost", std::string(128, 'h'));
    SetString(bag, "PvnWFKey_ProxyUserName", std::string(33, 'u'));
    SetString(bag, "PvnWFKey_ProxyPassword", std::string(33, 'p'));
    EXPECT_EQ(Read().proxyHost, std::string(128, 'h'));
    EXPECT_EQ(status, kStatusSuccess) << "the other texts are not sent";
    bag.Remove("PvnWFKey_ProxyPort", kValueTypeLong);
    SetString(bag, "PvnWFKey_ProxyHost", std::string(129, 'h'));
    ExpectSystemsProxy();
}

TEST(CommunicationDetail, OverwritesItsTextsAtItsEnd) {
    alignas(CommunicationDetail) unsigned char room[sizeof(CommunicationDetail)];
    auto* const detail = new (room) CommunicationDetail;
    std::strcpy(detail->proxyHost, "proxy.test");
    std::strcpy(detail->proxyUserName, "someone");
    std::strcpy(detail->proxyPassword, "secret");
    const std::string words[] = {"proxy.test", "someone", "secret"};
    const auto holds = [&](const std::string& word) {
        return std::search(std::begin(room), std::end(room), word.begin(), word.end()) != std::end(room);
    };
    for (const std::string& word : words) EXPECT_TRUE(holds(word));
    std::destroy_at(detail);
    for (const std::string& word : words) EXPECT_FALSE(holds(word));
}

} // namespace
} // namespace brixen::pvn
