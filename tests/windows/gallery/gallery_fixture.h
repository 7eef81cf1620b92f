// Dialogs in real windows, in any language: the gallery, which is a view with every keyword, or any other
// view. The text keys of the gallery hold the ids of its controls. Its English words are in the view, the
// others in tests/data/gallery/.
#pragma once

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/translation.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/event_record.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

namespace brixen::zeve {

inline HWND Handle(NativeWindow window) { return reinterpret_cast<HWND>(window); }

struct GalleryHost {
    std::map<int, CEveBox*> boxes; // by view id
    UINT throwAtControl = 0;       // the host throws when the control with this id is made

    static std::uint64_t Callback(std::int32_t what, EventRecord& record, void* params) {
        auto& host = *static_cast<GalleryHost*>(params);
        if (what == kWhatTopLevelMade || what == kWhatViewMade) host.Remember(record);
        if (what == kWhatMessage) host.ThrowIfAsked(record);
        return kAnswerDefault;
    }
    void Remember(const EventRecord& record) {
        const auto* scope = record.ReadPointer<const CExpressionScope*>(kKeyScope);
        auto* box = ReferenceFrom<CEveBox>(scope->GetLongOr("__eveBoxObj"_name, 0));
        boxes[box->viewId] = box;
    }
    void ThrowIfAsked(const EventRecord& record) const {
        const auto wparam = static_cast<WPARAM>(record.Read(kKeyWparam));
        if (throwAtControl == 0 || record.Read(kKeyEventRecord) != WM_PARENTNOTIFY) return;
        if (LOWORD(wparam) == WM_CREATE && HIWORD(wparam) == throwAtControl) throw std::runtime_error("host");
    }
};

inline std::string GalleryText() {
    std::ifstream file(PAVANE_TEST_DATA "/gallery.exv", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::wstring Wide(const std::string& text) {
    const std::u16string wide = lyr::gen::ToUtf16(text, true);
    return {wide.begin(), wide.end()};
}

// Returns the words of a language by their keys; none for English, whose words are in the view.
inline std::map<std::string, std::string> WordsOf(const std::string& language) {
    std::map<std::string, std::string> words;
    std::ifstream file(PAVANE_TEST_DATA "/gallery/" + language + ".txt", std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        const std::size_t equals = line.find('=');
        words[line.substr(1, equals - 1)] = line.substr(equals + 1, line.size() - equals - 2);
    }
    return words;
}

class GalleryTest : public testing::Test {
protected:
    explicit GalleryTest(const char* language = "en_US") : words(WordsOf(language)), language(language) {
        kestrel_private::ResetState();
        for (const auto& [key, text] : words) AddKeyValue(key + "=" + text);
        ZeveInitialize();
    }
    ~GalleryTest() override {
        ZeveDelete(dialog);
        kestrel_private::ResetState();
    }

    void New(const std::string& view) {
        ZeveInitRecord record;
        record.callback = &GalleryHost::Callback;
        record.language = language;
        record.instance = reinterpret_cast<NativeModule>(GetModuleHandleW(nullptr));
        dialog = ZeveNew(&record);
        ZeveAddViewText(dialog, view.c_str());
    }
    void Open() {
        const std::string view = GalleryText();
        ASSERT_FALSE(view.empty());
        ASSERT_EQ(words.empty(), language == std::string("en_US"));
        New(view);
        window = Handle(ZeveMakeDialog(dialog, &host));
        ASSERT_TRUE(IsWindow(window));
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
    }
    HWND Control(int id) const { return GetDlgItem(window, id); }
    static std::wstring Text(HWND control) {
        wchar_t text[200] = {};
        GetWindowTextW(control, text, 200);
        return text;
    }
    static std::wstring ClassOf(HWND control) {
        wchar_t name[64] = {};
        GetClassNameW(control, name, 64);
        return name;
    }
    // Returns the text of the control with that id in the language of the test.
    std::wstring InItsLanguage(int id, const wchar_t* english) const {
        for (const char* part : {"", "/items"}) {
            const auto found = words.find("$$$/gallery/" + std::to_string(id) + part);
            if (found == words.end() || !*english) continue;
            return Wide(found->second.substr(0, found->second.find('{')));
        }
        return english;
    }
    static LOGFONTW FontOf(HWND control) {
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font, &font);
        return font;
    }
    RECT FrameOf(HWND control) const {
        RECT frame;
        GetWindowRect(control, &frame);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&frame), 2);
        return frame;
    }

    const std::map<std::string, std::string> words;
    GalleryHost host;
    ZeveDialog* dialog = nullptr;
    HWND window = nullptr;

private:
    const char* language;
};

} // namespace brixen::zeve
