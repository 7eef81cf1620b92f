// What the shell really starts for a link.
#include "workflow/controls/open_in_browser.h"

#include "windows/links/recorder.h"
#include "windows/toolkit/patched_import.h"
#include "workflow/controls/hyper_link.h"
#include "workflow/platform/control_platform.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

#include <gtest/gtest.h>

#include <cstring>

namespace brixen::pvn::pvn_workflow {
namespace {

bool EndsWith(const std::wstring& text, const std::wstring& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST(Browser, IsStartedWithTheAddressAsOneQuotedArgument) {
    pavane_test::Recorder recorder;
    recorder.ActAsBrowser();
    OpenInBrowser(u"https://example.com/a?b=1&c=%20#d");
    const auto started = recorder.Next();
    ASSERT_TRUE(started);
    EXPECT_TRUE(EndsWith(started->commandLine, L".exe\" \"https://example.com/a?b=1&c=%20#d\"") ||
                EndsWith(started->commandLine, L".exe \"https://example.com/a?b=1&c=%20#d\""))
        << testing::PrintToString(started->commandLine);
    EXPECT_EQ(started->showCommand, SW_RESTORE);
}

TEST(Browser, ThatIsMissingLeavesTheAddressToTheUsersOwn) {
    const pavane_test::Recorder recorder;
    EXPECT_FALSE(platform::StartProgram(u"iexplore.exe", u"", 9)) << "nothing is registered";
    OpenInBrowser(u"https://example.com/a?b=1&c=2");
    const auto started = recorder.Next();
    ASSERT_TRUE(started);
    EXPECT_TRUE(EndsWith(started->commandLine, L" url \"https://example.com/a?b=1&c=2\""))
        << testing::PrintToString(started->commandLine);
}

TEST(Browser, IsGivenALocalPage) {
    pavane_test::Recorder recorder;
    recorder.ActAsBrowser();
    SelectLanguage("de_DE");
    OpenLocalPage("welcome");
    ShutDownResources();
    const auto started = recorder.Next();
    ASSERT_TRUE(started);
    EXPECT_TRUE(EndsWith(started->commandLine, L"\\PVResources\\de_DE\\welcome.html\""))
        << testing::PrintToString(started->commandLine);
}

TEST(Browser, IsNotStartedForAnythingElse) {
    pavane_test::Recorder recorder;
    recorder.ActAsBrowser();
    for (const char16_t* target : {u"http://a b", u"http://a\" \"b", u"C:\\windows\\system32\\notepad.exe",
                                   u"file:///C:/windows/system32/notepad.exe", u"ftp://example.com"}) {
        OpenInBrowser(target);
        HyperLink link;
        link.url = target;
        link.Navigate();
    }
    OpenInBrowser(u"http://the.end");
    const auto started = recorder.Next();
    ASSERT_TRUE(started);
    EXPECT_TRUE(EndsWith(started->commandLine, L"\"http://the.end\"")) << "the only one that was started";
    EXPECT_FALSE(recorder.HasAny());
}

INT_PTR gShellAnswer = 0;

HINSTANCE WINAPI AnswerAsTheShell(HWND, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*, INT) {
    return reinterpret_cast<HINSTANCE>(gShellAnswer);
}

TEST(Shell, HasStartedNothingIfItsAnswerIsAtMost32) {
    const pavane_test::PatchedImport shell("ShellExecuteW", &AnswerAsTheShell);
    ASSERT_TRUE(shell.IsPatched());
    for (const INT_PTR answer : {0, 2, 32, 33, 42}) {
        gShellAnswer = answer;
        EXPECT_EQ(platform::StartProgram(u"a.exe", u"", 1), answer > 32) << answer;
        EXPECT_EQ(platform::OpenWithShell(u"http://a"), answer > 32) << answer;
    }
}

TEST(LinkThatNavigates, HandsTheAddressToTheShellAsItIs) {
    const pavane_test::Recorder recorder;
    HyperLink link;
    link.url = u"http://example.com/a?b=1&c=2";
    link.Navigate();
    const auto started = recorder.Next();
    ASSERT_TRUE(started);
    EXPECT_TRUE(EndsWith(started->commandLine, L" url \"http://example.com/a?b=1&c=2\""))
        << testing::PrintToString(started->commandLine);
    EXPECT_TRUE(link.state & HyperLink::kVisited);
}

// --- Settings ---

int gClosedKeys = 0;

LONG WINAPI CountClosedKey(HKEY key) {
    ++gClosedKeys;
    const auto close = reinterpret_cast<decltype(&RegCloseKey)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"advapi32.dll"), "RegCloseKey")));
    return close(key);
}

TEST(UserSettings, LeaveNoKeyOpen) {
    const pavane_test::PatchedImport closing("RegCloseKey", &CountClosedKey);
    ASSERT_TRUE(closing.IsPatched());
    gClosedKeys = 0;
    EXPECT_FALSE(platform::ReadUserSetting(u"Software", u"No such value"));
    EXPECT_EQ(gClosedKeys, 1);
    EXPECT_FALSE(platform::ReadUserSetting(u"Software\\No such key", u"No such value"));
    EXPECT_EQ(gClosedKeys, 1);
}

TEST(UserSettings, AreReadAsTheyAreStored) {
    constexpr wchar_t kKey[] = L"Software\\Brixen\\Test of settings";
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
    const auto set = [key](const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
        RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(bytes), size);
    };
    set(L"Text", REG_SZ, L"1,2,3", 12);
    set(L"Longest", REG_EXPAND_SZ, L"255,255,255", 24);
    set(L"Too long", REG_SZ, L"255,255,255 ", 26);
    set(L"A byte too long", REG_BINARY, L"255,255,255 ", 25);
    set(L"Odd", REG_SZ, L"1,2,3", 11);
    const auto read = [](const char16_t* name) {
        return platform::ReadUserSetting(u"Software\\Brixen\\Test of settings", name);
    };
    ASSERT_TRUE(read(u"Text"));
    EXPECT_EQ(read(u"Text")->type, platform::kSettingText);
    EXPECT_EQ(read(u"Text")->size, 12u);
    EXPECT_EQ(std::memcmp(read(u"Text")->bytes.data(), L"1,2,3", 12), 0);
    ASSERT_TRUE(read(u"Longest"));
    EXPECT_EQ(read(u"Longest")->type, platform::kSettingExpandableText);
    EXPECT_EQ(read(u"Longest")->size, 24u);
    EXPECT_FALSE(read(u"Too long"));
    EXPECT_FALSE(read(u"A byte too long"));
    ASSERT_TRUE(read(u"Odd"));
    EXPECT_EQ(read(u"Odd")->size % 2, 1u) << "some systems add a terminator";
    RegCloseKey(key);
    RegDeleteKeyW(HKEY_CURRENT_USER, kKey);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
