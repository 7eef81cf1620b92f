#include "toolkit/platform/win32/isolation.h"

#include "toolkit/platform/toolkit_platform.h"
#include "windows/toolkit/patched_import.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace brixen::zeve::platform {
namespace {

using pavane_test::PatchedImport;

DWORD gErrorOfCreate = 0;
int gCreateCalls = 0;
DWORD gPathLength = 0;

HANDLE WINAPI FailToCreate(const ACTCTXW*) {
    ++gCreateCalls;
    SetLastError(gErrorOfCreate);
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI FailToActivate(HANDLE, ULONG_PTR*) {
    SetLastError(4711);
    return FALSE;
}

BOOL WINAPI FailToQuery(DWORD, HANDLE, void*, ULONG, void*, SIZE_T, SIZE_T*) {
    SetLastError(4712);
    return FALSE;
}

BOOL WINAPI DisturbWhileLeaving(DWORD, ULONG_PTR) {
    SetLastError(4713);
    return TRUE;
}

DWORD WINAPI TellLongPath(HMODULE, wchar_t* path, DWORD size) {
    const DWORD length = gPathLength < size ? gPathLength : size;
    std::fill_n(path, length, L'p');
    if (length < size) path[length] = 0;
    return length;
}

// The request that reached NoteClasses, which replaces InitCommonControlsEx.
struct AskedClasses {
    DWORD size = 0, classes = 0;
    int times = 0;
    HANDLE context = nullptr; // that was active
};
AskedClasses gAsked;
int gEntryLookups = 0;

BOOL WINAPI NoteClasses(const DWORD* request) {
    gAsked.size = request[0];
    gAsked.classes = request[1];
    ++gAsked.times;
    GetCurrentActCtx(&gAsked.context);
    ReleaseActCtx(gAsked.context);
    return TRUE;
}

FARPROC WINAPI TellNoteClasses(HMODULE, const char* name) {
    ++gEntryLookups;
    const bool isAskedFor = std::string_view(name) == "InitCommonControlsEx";
    return reinterpret_cast<FARPROC>(isAskedFor ? reinterpret_cast<void*>(&NoteClasses) : nullptr);
}

class IsolationTest : public ::testing::Test {
protected:
    IsolationTest() {
        ResetIsolation();
        gCreateCalls = 0;
    }
    ~IsolationTest() override { ResetIsolation(); }

    // Returns whether a call is made at all.
    static bool IsCalled() {
        bool called = false;
        IsolatedCall([&called] { return called = true; });
        return called;
    }
};

TEST_F(IsolationTest, FindsTheCommonControlsThatTheManifestNames) {
    EXPECT_TRUE(IsCalled());
    EXPECT_TRUE(Isolation().isInitialized);
    ASSERT_NE(Isolation().commonControls, nullptr);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(Isolation().commonControls, path, MAX_PATH);
    EXPECT_NE(std::wstring(path).find(L"winsxs"), std::wstring::npos);
}

TEST_F(IsolationTest, InitializesOnce) {
    EXPECT_TRUE(IsCalled());
    const HANDLE context = Isolation().context;
    EXPECT_TRUE(IsCalled());
    EXPECT_EQ(Isolation().context, context);
}

TEST_F(IsolationTest, AModuleWithoutAManifestHasNoContextAndCallsAreStillMade) {
    const PatchedImport patch("CreateActCtxW", &FailToCreate);
    ASSERT_TRUE(patch.IsPatched());
    for (const DWORD error : {1812u, 1813u, 1814u, 1815u}) {
        ResetIsolation();
        gErrorOfCreate = error;
        EXPECT_TRUE(IsCalled()) << error;
        EXPECT_EQ(Isolation().context, nullptr);
    }
}

TEST_F(IsolationTest, AnyOtherErrorOfTheContextStopsTheCall) {
    const PatchedImport patch("CreateActCtxW", &FailToCreate);
    for (const DWORD error : {1811u, 1816u, 14001u}) {
        ResetIsolation();
        gErrorOfCreate = error;
        EXPECT_FALSE(IsCalled()) << error;
        EXPECT_EQ(GetLastError(), error);
    }
}

TEST_F(IsolationTest, AFailedInitializationIsTriedAgain) {
    gErrorOfCreate = 14001;
    {
        const PatchedImport patch("CreateActCtxW", &FailToCreate);
        EXPECT_FALSE(IsCalled());
        EXPECT_FALSE(IsCalled());
        EXPECT_EQ(gCreateCalls, 2);
    }
    EXPECT_TRUE(IsCalled());
}

TEST_F(IsolationTest, AQueryThatFailsStopsTheCall) {
    const PatchedImport patch("QueryActCtxW", &FailToQuery);
    ASSERT_TRUE(patch.IsPatched());
    EXPECT_FALSE(IsCalled());
    EXPECT_EQ(GetLastError(), 4712u);
}

TEST_F(IsolationTest, AContextThatCannotBeEnteredStopsTheCall) {
    EXPECT_TRUE(IsCalled());
    const PatchedImport patch("ActivateActCtx", &FailToActivate);
    ASSERT_TRUE(patch.IsPatched());
    EXPECT_FALSE(IsCalled());
    EXPECT_EQ(GetLastError(), 4711u);
}

TEST_F(IsolationTest, WindowsClassesAndLibrariesAreMadeOnlyInsideTheContext) {
    WindowRequest request;
    request.className = u"static";
    const std::u16string className = NewUniqueName();
    {
        const PatchedImport patch("ActivateActCtx", &FailToActivate);
        EXPECT_EQ(MakeWindow(request), nullptr);
        EXPECT_FALSE(RegisterDialogClass(className.c_str(), LibraryModule()));
        EXPECT_EQ(LoadRichEdit(), nullptr);
    }
    const NativeWindow window = MakeWindow(request);
    const NativeModule richEdit = LoadRichEdit();
    EXPECT_NE(window, nullptr);
    EXPECT_TRUE(RegisterDialogClass(className.c_str(), LibraryModule()));
    EXPECT_NE(richEdit, nullptr);
    CloseWindow(window);
    UnregisterDialogClass(className.c_str(), LibraryModule());
    UnloadModule(richEdit);
}

TEST_F(IsolationTest, APathOfMoreThan261CharactersIsError111) {
    const PatchedImport path("GetModuleFileNameW", &TellLongPath);
    ASSERT_TRUE(path.IsPatched());
    for (const DWORD length : {262u, 263u, 5000u}) {
        gPathLength = length;
        SetLastError(0);
        EXPECT_FALSE(IsCalled()) << length;
        EXPECT_EQ(GetLastError(), 111u) << length;
    }
    const PatchedImport create("CreateActCtxW", &FailToCreate);
    gErrorOfCreate = 1812;
    gPathLength = 261;
    EXPECT_TRUE(IsCalled());
    EXPECT_EQ(gCreateCalls, 1);
}

TEST_F(IsolationTest, LeavingTheContextKeepsTheErrorOfTheCall) {
    EXPECT_TRUE(IsCalled());
    const PatchedImport patch("DeactivateActCtx", &DisturbWhileLeaving);
    ASSERT_TRUE(patch.IsPatched());
    const bool result = IsolatedCall([] {
        SetLastError(99);
        return false;
    });
    EXPECT_FALSE(result);
    EXPECT_EQ(GetLastError(), 99u);
}

TEST_F(IsolationTest, RegistersAllCommonControlsInsideTheContext) {
    gAsked = {};
    gEntryLookups = 0;
    const PatchedImport patch("GetProcAddress", &TellNoteClasses);
    ASSERT_TRUE(patch.IsPatched());
    RegisterCommonControls();
    RegisterCommonControls();
    EXPECT_EQ(gAsked.size, 8u);
    EXPECT_EQ(gAsked.classes, 2047u);
    EXPECT_EQ(gAsked.times, 2);
    EXPECT_EQ(gEntryLookups, 1) << "the entry is kept";
    EXPECT_EQ(gAsked.context, Isolation().context);
    EXPECT_NE(gAsked.context, nullptr);
}

std::string gDebugText;

LONG CALLBACK NoteDebugText(EXCEPTION_POINTERS* exception) {
    constexpr DWORD kDebugText = 0x40010006;
    if (exception->ExceptionRecord->ExceptionCode != kDebugText) return EXCEPTION_CONTINUE_SEARCH;
    gDebugText = reinterpret_cast<const char*>(exception->ExceptionRecord->ExceptionInformation[1]);
    return EXCEPTION_CONTINUE_EXECUTION;
}

TEST_F(IsolationTest, AfterTheCleanUpItWarnsAndStillMakesTheCall) {
    EXPECT_TRUE(IsCalled());
    Isolation().isCleanedUp = true;
    void* const handler = AddVectoredExceptionHandler(1, NoteDebugText);
    EXPECT_TRUE(IsCalled());
    RemoveVectoredExceptionHandler(handler);
    EXPECT_EQ(gDebugText, "IsolationAware function called after IsolationAwareCleanup\n");
}

TEST_F(IsolationTest, AfterTheCleanUpNothingIsInitialized) {
    Isolation().isCleanedUp = true;
    void* const handler = AddVectoredExceptionHandler(1, NoteDebugText);
    IsCalled();
    RemoveVectoredExceptionHandler(handler);
    EXPECT_FALSE(Isolation().isInitialized);
    EXPECT_EQ(Isolation().context, INVALID_HANDLE_VALUE);
}

} // namespace
} // namespace brixen::zeve::platform
