#include "workflow/controls/anchor_color.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string_view>

namespace brixen::pvn::pvn_workflow {
namespace {

using platform::UserSetting;

// The value that the registry has for a text, terminator included.
UserSetting Setting(std::u16string_view text, std::uint32_t type = platform::kSettingText) {
    UserSetting setting;
    setting.type = type;
    setting.size = (text.size() + 1) * 2;
    std::memcpy(setting.bytes.data(), text.data(), text.size() * 2);
    return setting;
}

TEST(AnchorColor, IsRedGreenAndBlue) {
    EXPECT_EQ(ColorOfSetting(Setting(u"1,2,3")), 0x030201u);
    EXPECT_EQ(ColorOfSetting(Setting(u"255,255,255")), 0xFFFFFFu);
    EXPECT_EQ(ColorOfSetting(Setting(u"0,0,0")), 0u);
    EXPECT_EQ(ColorOfSetting(Setting(u"0, 128 ,9")), 0x098000u);
}

TEST(AnchorColor, OfAnotherTextIsNone) {
    for (const char16_t* text :
         {u"", u"1", u"1,2", u"1,2,", u"1,,3", u",2,3", u"1,2,3,", u"1,2,3,4", u"1;2;3", u"-1,2,3", u"+1,2,3",
          u"256,0,0", u"0,0,256", u"99999999999", u"0x1,2,3", u"a,b,c", u"1,2,3x", u"1 2,3"}) {
        EXPECT_FALSE(ColorOfSetting(Setting(text))) << testing::PrintToString(std::u16string(text));
    }
}

TEST(AnchorColor, IsATextOfOneOfTwoTypes) {
    EXPECT_TRUE(ColorOfSetting(Setting(u"1,2,3", 1)));
    EXPECT_TRUE(ColorOfSetting(Setting(u"1,2,3", 2)));
    for (const std::uint32_t type : {0u, 3u, 4u, 7u, 11u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(ColorOfSetting(Setting(u"1,2,3", type))) << type;
    }
}

TEST(AnchorColor, OfAnOddNumberOfBytesIsNone) {
    UserSetting setting = Setting(u"1,2,3");
    --setting.size;
    EXPECT_FALSE(ColorOfSetting(setting));
    setting.size += 2;
    EXPECT_FALSE(ColorOfSetting(setting));
}

TEST(AnchorColor, WithoutATerminatorIsNone) {
    UserSetting setting = Setting(u"1,2,3");
    setting.size -= 2;
    EXPECT_FALSE(ColorOfSetting(setting));
    setting.size = 0;
    EXPECT_FALSE(ColorOfSetting(setting));
}

TEST(AnchorColor, EndsAtTheFirstTerminator) {
    UserSetting setting = Setting(u"1,2,3");
    setting.size += 4;
    EXPECT_EQ(ColorOfSetting(setting), 0x030201u);
}

TEST(AnchorColor, OfASizeBeyondTheBytesIsNone) {
    UserSetting setting = Setting(u"255,255,255");
    setting.size = UserSetting::kMostBytes + 2;
    EXPECT_FALSE(ColorOfSetting(setting));
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
