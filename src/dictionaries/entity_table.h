// The names of `#{name}` in a value.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kestrel_private {

// A name and the text that it gives.
struct Entity {
    template <std::size_t size>
    constexpr Entity(const char16_t (&spelling)[size], char16_t unit, char16_t second = 0)
        : name(spelling, size - 1), unit(unit), second(second) {}

    std::u16string_view name;
    char16_t unit;
    char16_t second; // a second unit, or 0
};

// In the order in which they are tried.
// Kept: the plus-minus sign is `plusm`, and `yen`, `ouml` and `zwnj` include a terminator and so match no
// text. Files in use are written around both.
inline constexpr auto kEntities = std::to_array<Entity>(
    {Entity{u"endl", 0x000D, 0x000A}, Entity{u"tab", 0x0009},    Entity{u"cr", 0x000D},
     Entity{u"lf", 0x000A},           Entity{u"nbsp", 0x00A0},   Entity{u"iexcl", 0x00A1},
     Entity{u"cent", 0x00A2},         Entity{u"pound", 0x00A3},  Entity{u"curren", 0x00A4},
     Entity{u"yen\0", 0x00A5},        Entity{u"brvbar", 0x00A6}, Entity{u"sect", 0x00A7},
     Entity{u"uml", 0x00A8},          Entity{u"copy", 0x00A9},   Entity{u"ordf", 0x00AA},
     Entity{u"laquo", 0x00AB},        Entity{u"not", 0x00AC},    Entity{u"shy", 0x00AD},
     Entity{u"reg", 0x00AE},          Entity{u"macr", 0x00AF},   Entity{u"deg", 0x00B0},
     Entity{u"plusm", 0x00B1},        Entity{u"sup2", 0x00B2},   Entity{u"sup3", 0x00B3},
     Entity{u"acute", 0x00B4},        Entity{u"micro", 0x00B5},  Entity{u"para", 0x00B6},
     Entity{u"middot", 0x00B7},       Entity{u"cedil", 0x00B8},  Entity{u"sup1", 0x00B9},
     Entity{u"ordm", 0x00BA},         Entity{u"raquo", 0x00BB},  Entity{u"frac14", 0x00BC},
     Entity{u"frac12", 0x00BD},       Entity{u"frac34", 0x00BE}, Entity{u"iquest", 0x00BF},
     Entity{u"Agrave", 0x00C0},       Entity{u"Aacute", 0x00C1}, Entity{u"Acirc", 0x00C2},
     Entity{u"Atilde", 0x00C3},       Entity{u"Auml", 0x00C4},   Entity{u"Aring", 0x00C5},
     Entity{u"AElig", 0x00C6},        Entity{u"Ccedil", 0x00C7}, Entity{u"Egrave", 0x00C8},
     Entity{u"Eacute", 0x00C9},       Entity{u"Ecirc", 0x00CA},  Entity{u"Euml", 0x00CB},
     Entity{u"Igrave", 0x00CC},       Entity{u"Iacute", 0x00CD}, Entity{u"Icirc", 0x00CE},
     Entity{u"Iuml", 0x00CF},         Entity{u"ETH", 0x00D0},    Entity{u"Ntilde", 0x00D1},
     Entity{u"Ograve", 0x00D2},       Entity{u"Oacute", 0x00D3}, Entity{u"Ocirc", 0x00D4},
     Entity{u"Otilde", 0x00D5},       Entity{u"Ouml", 0x00D6},   Entity{u"times", 0x00D7},
     Entity{u"Oslash", 0x00D8},       Entity{u"Ugrave", 0x00D9}, Entity{u"Uacute", 0x00DA},
     Entity{u"Ucirc", 0x00DB},        Entity{u"Uuml", 0x00DC},   Entity{u"Yacute", 0x00DD},
     Entity{u"THORN", 0x00DE},        Entity{u"szlig", 0x00DF},  Entity{u"agrave", 0x00E0},
     Entity{u"aacute", 0x00E1},       Entity{u"acirc", 0x00E2},  Entity{u"atilde", 0x00E3},
     Entity{u"auml", 0x00E4},         Entity{u"aring", 0x00E5},  Entity{u"aelig", 0x00E6},
     Entity{u"ccedil", 0x00E7},       Entity{u"egrave", 0x00E8}, Entity{u"eacute", 0x00E9},
     Entity{u"ecirc", 0x00EA},        Entity{u"euml", 0x00EB},   Entity{u"igrave", 0x00EC},
     Entity{u"iacute", 0x00ED},       Entity{u"icirc", 0x00EE},  Entity{u"iuml", 0x00EF},
     Entity{u"eth", 0x00F0},          Entity{u"ntilde", 0x00F1}, Entity{u"ograve", 0x00F2},
     Entity{u"oacute", 0x00F3},       Entity{u"ocirc", 0x00F4},  Entity{u"otilde", 0x00F5},
     Entity{u"ouml\0", 0x00F6},       Entity{u"divide", 0x00F7}, Entity{u"oslash", 0x00F8},
     Entity{u"ugrave", 0x00F9},       Entity{u"uacute", 0x00FA}, Entity{u"ucirc", 0x00FB},
     Entity{u"uuml", 0x00FC},         Entity{u"yacute", 0x00FD}, Entity{u"thorn", 0x00FE},
     Entity{u"yuml", 0x00FF},         Entity{u"quot", 0x0022},   Entity{u"amp", 0x0026},
     Entity{u"lt", 0x003C},           Entity{u"gt", 0x003E},     Entity{u"OElig", 0x0152},
     Entity{u"oelig", 0x0153},        Entity{u"Scaron", 0x0160}, Entity{u"scaron", 0x0161},
     Entity{u"Yuml", 0x0178},         Entity{u"circ", 0x02C6},   Entity{u"tilde", 0x02DC},
     Entity{u"ensp", 0x2002},         Entity{u"emsp", 0x2003},   Entity{u"thinsp", 0x2009},
     Entity{u"zwnj\0", 0x200C},       Entity{u"zwj", 0x200D},    Entity{u"lrm", 0x200E},
     Entity{u"rlm", 0x200F},          Entity{u"ndash", 0x2013},  Entity{u"mdash", 0x2014},
     Entity{u"lsquo", 0x2018},        Entity{u"rsquo", 0x2019},  Entity{u"sbquo", 0x201A},
     Entity{u"ldquo", 0x201C},        Entity{u"rdquo", 0x201D},  Entity{u"bdquo", 0x201E},
     Entity{u"dagger", 0x2020},       Entity{u"Dagger", 0x2021}, Entity{u"permil", 0x2030},
     Entity{u"lsaquo", 0x2039},       Entity{u"rsaquo", 0x203A}, Entity{u"euro", 0x20AC}});

} // namespace kestrel_private
