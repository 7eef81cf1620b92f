#pragma once

#include <array>
#include <string_view>

namespace kestrel_private {

using namespace std::string_view_literals;

struct Entity {
    std::u16string_view name;
    char16_t unit;
    char16_t second = 0; // a second unit, if not 0
};

// The names of `#{name}`, in the order in which they are tried. Meant as they stand: the plus-minus sign is
// `plusm`, and `yen`, `ouml` and `zwnj` take in a terminator, so that they match no text. Files in the field
// are written around both.
inline constexpr auto kEntities = std::to_array<Entity>(
    {Entity{u"endl"sv, 0x000D, 0x000A}, Entity{u"tab"sv, 0x0009},    Entity{u"cr"sv, 0x000D},
     Entity{u"lf"sv, 0x000A},           Entity{u"nbsp"sv, 0x00A0},   Entity{u"iexcl"sv, 0x00A1},
     Entity{u"cent"sv, 0x00A2},         Entity{u"pound"sv, 0x00A3},  Entity{u"curren"sv, 0x00A4},
     Entity{u"yen\0"sv, 0x00A5},        Entity{u"brvbar"sv, 0x00A6}, Entity{u"sect"sv, 0x00A7},
     Entity{u"uml"sv, 0x00A8},          Entity{u"copy"sv, 0x00A9},   Entity{u"ordf"sv, 0x00AA},
     Entity{u"laquo"sv, 0x00AB},        Entity{u"not"sv, 0x00AC},    Entity{u"shy"sv, 0x00AD},
     Entity{u"reg"sv, 0x00AE},          Entity{u"macr"sv, 0x00AF},   Entity{u"deg"sv, 0x00B0},
     Entity{u"plusm"sv, 0x00B1},        Entity{u"sup2"sv, 0x00B2},   Entity{u"sup3"sv, 0x00B3},
     Entity{u"acute"sv, 0x00B4},        Entity{u"micro"sv, 0x00B5},  Entity{u"para"sv, 0x00B6},
     Entity{u"middot"sv, 0x00B7},       Entity{u"cedil"sv, 0x00B8},  Entity{u"sup1"sv, 0x00B9},
     Entity{u"ordm"sv, 0x00BA},         Entity{u"raquo"sv, 0x00BB},  Entity{u"frac14"sv, 0x00BC},
     Entity{u"frac12"sv, 0x00BD},       Entity{u"frac34"sv, 0x00BE}, Entity{u"iquest"sv, 0x00BF},
     Entity{u"Agrave"sv, 0x00C0},       Entity{u"Aacute"sv, 0x00C1}, Entity{u"Acirc"sv, 0x00C2},
     Entity{u"Atilde"sv, 0x00C3},       Entity{u"Auml"sv, 0x00C4},   Entity{u"Aring"sv, 0x00C5},
     Entity{u"AElig"sv, 0x00C6},        Entity{u"Ccedil"sv, 0x00C7}, Entity{u"Egrave"sv, 0x00C8},
     Entity{u"Eacute"sv, 0x00C9},       Entity{u"Ecirc"sv, 0x00CA},  Entity{u"Euml"sv, 0x00CB},
     Entity{u"Igrave"sv, 0x00CC},       Entity{u"Iacute"sv, 0x00CD}, Entity{u"Icirc"sv, 0x00CE},
     Entity{u"Iuml"sv, 0x00CF},         Entity{u"ETH"sv, 0x00D0},    Entity{u"Ntilde"sv, 0x00D1},
     Entity{u"Ograve"sv, 0x00D2},       Entity{u"Oacute"sv, 0x00D3}, Entity{u"Ocirc"sv, 0x00D4},
     Entity{u"Otilde"sv, 0x00D5},       Entity{u"Ouml"sv, 0x00D6},   Entity{u"times"sv, 0x00D7},
     Entity{u"Oslash"sv, 0x00D8},       Entity{u"Ugrave"sv, 0x00D9}, Entity{u"Uacute"sv, 0x00DA},
     Entity{u"Ucirc"sv, 0x00DB},        Entity{u"Uuml"sv, 0x00DC},   Entity{u"Yacute"sv, 0x00DD},
     Entity{u"THORN"sv, 0x00DE},        Entity{u"szlig"sv, 0x00DF},  Entity{u"agrave"sv, 0x00E0},
     Entity{u"aacute"sv, 0x00E1},       Entity{u"acirc"sv, 0x00E2},  Entity{u"atilde"sv, 0x00E3},
     Entity{u"auml"sv, 0x00E4},         Entity{u"aring"sv, 0x00E5},  Entity{u"aelig"sv, 0x00E6},
     Entity{u"ccedil"sv, 0x00E7},       Entity{u"egrave"sv, 0x00E8}, Entity{u"eacute"sv, 0x00E9},
     Entity{u"ecirc"sv, 0x00EA},        Entity{u"euml"sv, 0x00EB},   Entity{u"igrave"sv, 0x00EC},
     Entity{u"iacute"sv, 0x00ED},       Entity{u"icirc"sv, 0x00EE},  Entity{u"iuml"sv, 0x00EF},
     Entity{u"eth"sv, 0x00F0},          Entity{u"ntilde"sv, 0x00F1}, Entity{u"ograve"sv, 0x00F2},
     Entity{u"oacute"sv, 0x00F3},       Entity{u"ocirc"sv, 0x00F4},  Entity{u"otilde"sv, 0x00F5},
     Entity{u"ouml\0"sv, 0x00F6},       Entity{u"divide"sv, 0x00F7}, Entity{u"oslash"sv, 0x00F8},
     Entity{u"ugrave"sv, 0x00F9},       Entity{u"uacute"sv, 0x00FA}, Entity{u"ucirc"sv, 0x00FB},
     Entity{u"uuml"sv, 0x00FC},         Entity{u"yacute"sv, 0x00FD}, Entity{u"thorn"sv, 0x00FE},
     Entity{u"yuml"sv, 0x00FF},         Entity{u"quot"sv, 0x0022},   Entity{u"amp"sv, 0x0026},
     Entity{u"lt"sv, 0x003C},           Entity{u"gt"sv, 0x003E},     Entity{u"OElig"sv, 0x0152},
     Entity{u"oelig"sv, 0x0153},        Entity{u"Scaron"sv, 0x0160}, Entity{u"scaron"sv, 0x0161},
     Entity{u"Yuml"sv, 0x0178},         Entity{u"circ"sv, 0x02C6},   Entity{u"tilde"sv, 0x02DC},
     Entity{u"ensp"sv, 0x2002},         Entity{u"emsp"sv, 0x2003},   Entity{u"thinsp"sv, 0x2009},
     Entity{u"zwnj\0"sv, 0x200C},       Entity{u"zwj"sv, 0x200D},    Entity{u"lrm"sv, 0x200E},
     Entity{u"rlm"sv, 0x200F},          Entity{u"ndash"sv, 0x2013},  Entity{u"mdash"sv, 0x2014},
     Entity{u"lsquo"sv, 0x2018},        Entity{u"rsquo"sv, 0x2019},  Entity{u"sbquo"sv, 0x201A},
     Entity{u"ldquo"sv, 0x201C},        Entity{u"rdquo"sv, 0x201D},  Entity{u"bdquo"sv, 0x201E},
     Entity{u"dagger"sv, 0x2020},       Entity{u"Dagger"sv, 0x2021}, Entity{u"permil"sv, 0x2030},
     Entity{u"lsaquo"sv, 0x2039},       Entity{u"rsaquo"sv, 0x203A}, Entity{u"euro"sv, 0x20AC}});

} // namespace kestrel_private
