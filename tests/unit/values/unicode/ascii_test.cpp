#include "values/unicode/ascii.h"

#include <gtest/gtest.h>

using brixen::lyr::gen::ToAsciiLower;

TEST(ToAsciiLower, ChangesTheCapitalLettersOfAsciiAlone) {
    EXPECT_EQ(ToAsciiLower('A'), 'a');
    EXPECT_EQ(ToAsciiLower(u'Z'), u'z');
    for (const char byte : {'@', '[', 'a', 'z', '5', '\0', '\xC4'}) EXPECT_EQ(ToAsciiLower(byte), byte);
    for (const char16_t unit : {u'@', u'[', u'\u00C4', u'\u0141'}) EXPECT_EQ(ToAsciiLower(unit), unit);
}
