// The state that all dialogs of the process share. It has no lock: dialogs are made and run on one thread at
// a time.
#pragma once

#include "toolkit/keyword_table.h"
#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace brixen::zeve {

struct DialogLink;
class DpiUnawareScope;
class ModalRun;

struct FontFaces {
    std::u16string wide;   // for shown text
    std::u16string narrow; // for measuring popups
    std::uint8_t characterSet = 0;
};

// Kept: every icon is made at the size of the icon prepared last.
struct RememberedIcon {
    std::int64_t width = 0, height = 0; // pixels
    std::int64_t builtinIcon = 0;       // of the icon made last
};

struct ToolkitState {
    bool isInitialized = false;
    NativeModule richEdit = nullptr; // null after it was freed

    KeywordTable keywords;
    std::vector<DialogLink*> dialogs;             // see toolkit/dialog/dialog_registry.h
    ModalRun* innermostRun = nullptr;             // on the stack of its caller
    DpiUnawareScope* innermostDpiScope = nullptr; // on the stack of its owner
    std::exception_ptr keptException;             // see toolkit/kept_exception.h

    std::uint16_t lastViewId = 10000; // of a view or sub control; wraps around silently
    std::string languageInfo;         // of the view prepared last
    FontFaces faces;                  // of that language
    std::u16string bigFace;           // from the dictionaries; if not empty, replaces the wide face
    RememberedIcon icon;
    std::u16string dialogClassName; // of the dialog made last
    char fourCharText[5] = {};      // the four-character code returned last
};

extern ToolkitState gToolkit;

// Resets everything, for tests. No dialog may exist.
void ResetToolkit();

} // namespace brixen::zeve
