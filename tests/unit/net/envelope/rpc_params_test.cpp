#include "net/envelope/rpc_params.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <type_traits>

namespace brixen::pvn {
namespace {

std::string Binary(const PVN_RPCUtf8Param& param, std::size_t size) {
    std::string bytes(size + 1, '?');
    const std::size_t count = param.GetBinary(bytes.data(), size);
    EXPECT_EQ(bytes[size], '?') << "written past the size";
    return bytes.substr(0, count);
}

TEST(RpcParam, ANameIsCutAtFortyCharacters) {
    const std::string name = "a23456789012345678901234567890123456789z";
    ASSERT_EQ(name.size(), 40u);
    EXPECT_EQ(PVN_RPCInt32Param(name.c_str(), 1).GetName(), name);
    EXPECT_EQ(PVN_RPCInt32Param((name + "!").c_str(), 1).GetName(), name);
}

TEST(RpcParam, ANullNameIsEmpty) {
    PVN_RPCUtf8Param param(nullptr, "text");
    EXPECT_STREQ(param.GetName(), "");
    param.SetName("new");
    EXPECT_STREQ(param.GetName(), "new");
    param.SetName(nullptr);
    EXPECT_STREQ(param.GetName(), "");
}

class BareParam : public PVN_RPCParam {
public:
    BareParam() : PVN_RPCParam("bare") {}
    const char* GetType() const override { return "bare"; }
    const char* GetValue() const override { return "value"; }
};

TEST(RpcParam, IsNotValidByItself) { EXPECT_FALSE(BareParam().IsValid()); }

TEST(RpcParam, TheFirstVirtualOperationsAreTypeValueAndValidityAfterTheDestructor) {
    static_assert(std::has_virtual_destructor_v<PVN_RPCParam>);
    static_assert(std::is_abstract_v<PVN_RPCParam>);
#if defined(__GNUC__) // in this layout the destructor takes the first two places
    const BareParam param;
    const PVN_RPCParam* base = &param;
    using TextOperation = const char* (*)(const PVN_RPCParam*);
    using TruthOperation = bool (*)(const PVN_RPCParam*);
    void* const* table = *reinterpret_cast<void* const* const*>(base);
    EXPECT_STREQ(reinterpret_cast<TextOperation>(table[2])(base), "bare");
    EXPECT_STREQ(reinterpret_cast<TextOperation>(table[3])(base), "value");
    EXPECT_FALSE(reinterpret_cast<TruthOperation>(table[4])(base));
#endif
}

TEST(RpcUtf8Param, HoldsACopyOfItsText) {
    std::string text = "text";
    const PVN_RPCUtf8Param param("name", text.c_str());
    text[0] = 'n';
    EXPECT_STREQ(param.GetType(), "utf8_string");
    EXPECT_STREQ(param.GetName(), "name");
    EXPECT_STREQ(param.GetValue(), "text");
    EXPECT_TRUE(param.IsValid());
}

TEST(RpcUtf8Param, AnEmptyTextIsAValueAndANullTextIsNone) {
    EXPECT_TRUE(PVN_RPCUtf8Param("name", "").IsValid());
    const PVN_RPCUtf8Param none("name", nullptr);
    EXPECT_FALSE(none.IsValid());
    EXPECT_STREQ(none.GetValue(), "");
    EXPECT_EQ(none.GetBinaryLength(), 0u);
    EXPECT_EQ(Binary(none, 4), "");
}

TEST(RpcUtf8Param, HoldsBytesAsHexadecimalText) {
    const PVN_RPCUtf8Param param("name", "\x0A\xFF", 2);
    EXPECT_STREQ(param.GetValue(), "0AFF");
    EXPECT_TRUE(param.IsValid());
    EXPECT_EQ(param.GetBinaryLength(), 2u);
    EXPECT_EQ(Binary(param, 2), "\x0A\xFF");
}

TEST(RpcUtf8Param, NoBytesAreNoValue) {
    EXPECT_FALSE(PVN_RPCUtf8Param("name", nullptr, 2).IsValid());
    EXPECT_FALSE(PVN_RPCUtf8Param("name", "bytes", 0).IsValid());
    EXPECT_FALSE(PVN_RPCUtf8Param("name", "bytes", -1).IsValid());
    EXPECT_TRUE(PVN_RPCUtf8Param("name", "bytes", 1).IsValid());
}

TEST(RpcUtf8Param, TheBinaryLengthOfAnOddTextIsZero) {
    EXPECT_EQ(PVN_RPCUtf8Param("name", "ABC").GetBinaryLength(), 0u);
    EXPECT_EQ(PVN_RPCUtf8Param("name", "ABCD").GetBinaryLength(), 2u);
    EXPECT_EQ(PVN_RPCUtf8Param("name", "").GetBinaryLength(), 0u);
}

TEST(RpcUtf8Param, DecodesAtMostTheSize) {
    const PVN_RPCUtf8Param param("name", "414243");
    EXPECT_EQ(Binary(param, 2), "AB");
    EXPECT_EQ(Binary(param, 3), "ABC");
    EXPECT_EQ(Binary(param, 9), "ABC");
}

TEST(RpcUtf8Param, DecodesNothingInEachOfTheZeroCases) {
    const PVN_RPCUtf8Param param("name", "4142");
    EXPECT_EQ(param.GetBinary(nullptr, 2), 0u);
    EXPECT_EQ(Binary(param, 0), "");
    EXPECT_EQ(Binary(PVN_RPCUtf8Param("name", "ABC"), 9), "");
    EXPECT_EQ(Binary(PVN_RPCUtf8Param("name", "0aff"), 9), "");
    EXPECT_EQ(Binary(PVN_RPCUtf8Param("name", "41x2"), 9), "");
    EXPECT_EQ(Binary(PVN_RPCUtf8Param("name", "4142:0"), 9), "");
}

TEST(RpcUtf8Param, ACharacterThatIsNotReadDoesNoHarm) {
    EXPECT_EQ(Binary(PVN_RPCUtf8Param("name", "4142xx"), 2), "AB");
}

TEST(RpcUtf8Param, IsNotValidWithoutMemory) {
    const pavane_test::FailNthAllocation failure(1);
    EXPECT_FALSE(PVN_RPCUtf8Param("name", "text").IsValid());
    EXPECT_TRUE(failure.HasFailed());
}

TEST(RpcUtf8Param, IsNotValidWithoutMemoryForItsBytes) {
    const pavane_test::FailNthAllocation failure(1);
    EXPECT_FALSE(PVN_RPCUtf8Param("name", "bytes", 5).IsValid());
    EXPECT_TRUE(failure.HasFailed());
}

TEST(RpcInt32Param, HoldsTheNumberAsDecimalText) {
    const struct {
        std::int32_t value;
        const char* digits;
    } kCases[] = {{0, "0"},
                  {7, "7"},
                  {-7, "-7"},
                  {1234567890, "1234567890"},
                  {std::numeric_limits<std::int32_t>::max(), "2147483647"},
                  {std::numeric_limits<std::int32_t>::min(), "-2147483648"}};
    for (const auto& each : kCases) {
        const PVN_RPCInt32Param param("name", each.value);
        EXPECT_STREQ(param.GetType(), "integer");
        EXPECT_STREQ(param.GetValue(), each.digits);
        EXPECT_EQ(param.GetInt(), each.value);
        EXPECT_TRUE(param.IsValid());
    }
}

TEST(RpcInt32Param, CopiesAtMostTwelveCharacters) {
    EXPECT_STREQ(PVN_RPCInt32Param("name", "123456789012").GetValue(), "123456789012");
    EXPECT_STREQ(PVN_RPCInt32Param("name", "1234567890123").GetValue(), "123456789012");
}

TEST(RpcInt32Param, HasNoValueWithoutDigits) {
    EXPECT_FALSE(PVN_RPCInt32Param("name", nullptr).IsValid());
    EXPECT_FALSE(PVN_RPCInt32Param("name", "").IsValid());
    EXPECT_EQ(PVN_RPCInt32Param("name", "").GetInt(), 0);
    EXPECT_TRUE(PVN_RPCInt32Param("name", "no number").IsValid());
}

TEST(RpcInt32Param, ReadsEveryCharacterAsADigit) {
    const struct {
        const char* text;
        std::int32_t value;
    } kCases[] = {{"12", 12},
                  {"-12", -12},
                  {"-", 0},
                  {"1:", 20},
                  {"--1", -(-3 * 10 + 1)},
                  {"+5", -5 * 10 + 5},
                  {"4294967297", 1},
                  {"-2147483649", 2147483647},
                  {"999999999999", -727379969}};
    for (const auto& each : kCases)
        EXPECT_EQ(PVN_RPCInt32Param("name", each.text).GetInt(), each.value) << each.text;
}

// Counts its objects.
class CountedParam : public BareParam {
public:
    explicit CountedParam(int& count) : count(count) { ++count; }
    ~CountedParam() override { --count; }

private:
    int& count;
};

TEST(RpcParamVector, DeletesItsElementsOnlyWhenItOwnsThem) {
    int count = 0;
    {
        PVN_RPCParamVector params;
        params.push_back(new CountedParam(count));
        params.push_back(new CountedParam(count));
        params.ownsItems = true;
        EXPECT_EQ(count, 2);
    }
    EXPECT_EQ(count, 0);
    CountedParam borrowed(count);
    {
        PVN_RPCParamVector params;
        params.push_back(&borrowed);
        EXPECT_FALSE(params.ownsItems);
    }
    EXPECT_EQ(count, 1);
}

TEST(RpcParamVector, HasAVirtualDestructor) {
    static_assert(std::has_virtual_destructor_v<PVN_RPCParamVector>);
    static_assert(std::is_base_of_v<std::vector<PVN_RPCParam*>, PVN_RPCParamVector>);
}

} // namespace
} // namespace brixen::pvn
