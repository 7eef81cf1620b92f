// A dialog of the toolkit with labels, one of which becomes a hyperlink.
#pragma once

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/event_record.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/controls/hyper_link.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <memory>
#include <vector>

namespace brixen::pvn::pvn_workflow {

class LinkFixture : public testing::Test {
protected:
    static constexpr int kLinkId = 70, kButtonId = 71, kFieldId = 72, kPlaceId = 73;
    static constexpr COLORREF kBackground = RGB(250, 250, 250), kText = RGB(10, 20, 30);

    LinkFixture() : background(CreateSolidBrush(kBackground)) {
        zeve::ZeveInitialize();
        zeve::ZeveInitRecord record;
        record.callback = &LinkFixture::Hear;
        record.instance = zeve::platform::LibraryModule();
        dialog = zeve::ZeveNew(&record);
        zeve::ZeveAddViewText(dialog, "dialog(name: 'Links', width: 400, height: 200) {"
                                      "  edit_text(view_id: 72, width: 100);"
                                      "  static_text(name: 'Read &more', view_id: 70, width: 200);"
                                      "  button(name: 'Button', view_id: 71);"
                                      "  hyperlink(name: 'Read &all', view_id: 73, width: 200, height: 20);"
                                      "}");
        window = reinterpret_cast<HWND>(zeve::ZeveMakeDialog(dialog, this));
        control = GetDlgItem(window, kLinkId);
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
    }
    ~LinkFixture() override {
        zeve::ZeveDelete(dialog);
        DeleteObject(background);
    }

    static zeve::NativeWindow Opaque(HWND handle) { return reinterpret_cast<zeve::NativeWindow>(handle); }
    void Attach(std::uint32_t style) {
        link->extendedStyle = style;
        ASSERT_TRUE(link->Attach(Opaque(control)));
    }

    // Lets the dialog's keyboard rules handle what is posted.
    void HandleMessages() const {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
            if (IsDialogMessageW(window, &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    void PressKey(HWND target, WPARAM key) const {
        PostMessageW(target, WM_KEYDOWN, key, 0x00010001);
        HandleMessages();
    }
    void ReleaseKey(HWND target, WPARAM key) const {
        PostMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0010001));
        HandleMessages();
    }
    void Click(int x, int y) const {
        SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    // The commands that the dialog was sent with that id.
    int Commands(int id) const {
        int count = 0;
        for (const auto& command : commands) count += LOWORD(command) == id;
        return count;
    }

    HWND window = nullptr, control = nullptr;
    std::unique_ptr<HyperLink> link = std::make_unique<HyperLink>();
    std::vector<WPARAM> commands;
    std::vector<NMHDR> notifications; // of the link
    std::function<void(int id)> atCommand;

private:
    static std::uint64_t Hear(std::int32_t what, zeve::EventRecord& record, void* params) {
        auto& test = *static_cast<LinkFixture*>(params);
        if (what == zeve::kWhatViewMade) zeve::ZeveFillPlace(record);
        if (what != zeve::kWhatMessage) return zeve::kAnswerDefault;
        const auto wparam = static_cast<WPARAM>(record.Read(zeve::kKeyWparam));
        switch (record.Read(zeve::kKeyEventRecord)) {
        case WM_COMMAND:
            test.commands.push_back(wparam);
            if (test.atCommand) test.atCommand(LOWORD(wparam));
            return 0;
        case WM_NOTIFY: test.Note(*reinterpret_cast<const NMHDR*>(record.Read(zeve::kKeyLparam))); return 0;
        case WM_CTLCOLORSTATIC:
            SetBkMode(reinterpret_cast<HDC>(wparam), TRANSPARENT);
            SetTextColor(reinterpret_cast<HDC>(wparam), kText);
            return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(test.background));
        default: return zeve::kAnswerDefault;
        }
    }

    void Note(const NMHDR& header) {
        if (header.hwndFrom == control) notifications.push_back(header);
    }

    zeve::ZeveDialog* dialog = nullptr;
    HBRUSH background;
};

} // namespace brixen::pvn::pvn_workflow
