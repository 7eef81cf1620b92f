// What all boxes of the process share. It has no lock: dialogs are made on one thread at a time.
#pragma once

#include "toolkit/keyword_table.h"

#include <cstdint>
#include <string>

namespace brixen::zeve {

struct FontFaces {
    std::u16string wide;   // for what is shown
    std::u16string narrow; // for the measuring of popups
    std::uint8_t characterSet = 0;
};

// The icon prepared last gives its size to every icon made afterwards.
struct RememberedIcon {
    std::int64_t width = 0, height = 0; // pixels
    std::int64_t builtinIcon = 0;       // of the icon made last
};

struct BoxState {
    KeywordTable keywords;
    std::string languageInfo; // of the view prepared last
    FontFaces faces;          // of that language
    std::u16string bigFace;   // from the dictionaries; if not empty, it stands for the wide face
    RememberedIcon icon;
    std::u16string dialogClassName; // the last one made
};

extern BoxState gBoxState;

void ResetBoxState();

} // namespace brixen::zeve
