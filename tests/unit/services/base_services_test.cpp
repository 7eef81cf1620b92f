#include "services/base_services.h"

#include "frame/platform/posix/frame_twin.h"
#include "services/platform/posix/services_twin.h"
#include "support/another_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kBesideTheLibrary[] = "C:\\App\\svhservices.dll";
constexpr char kInTheWorkingDirectory[] = "C:\\Work\\svhservices.dll";

// What the companion of the test was asked.
std::vector<std::string> gAsked;
int gErrorService = 0;
void (*gInsideLogv)() = nullptr;

void Release(void* handle) { gAsked.push_back(handle == &gErrorService ? "release it" : "release another"); }

void Logv(void* session, const char* component, int level, const char* formats, const char* format,
          std::va_list arguments) {
    char text[500];
    std::vsnprintf(text, sizeof text, format, arguments);
    gAsked.push_back(std::string(session ? "session " : "") + component + " " + std::to_string(level) + " [" +
                     formats + "] " + text);
    if (gInsideLogv) gInsideLogv();
}

void* ErrnoServiceCreate() {
    gAsked.push_back("create");
    return &gErrorService;
}

void SetErrno(void* service, std::uint32_t number) {
    gAsked.push_back((service == &gErrorService ? "set " : "set without service ") + std::to_string(number));
}

template <class Function>
EntryPoint Entry(Function* function) {
    return reinterpret_cast<EntryPoint>(function);
}

TwinEntries AllEntries() {
    return {{"C_SVHRelease", Entry(Release)},
            {"C_SVHLogv", Entry(Logv)},
            {"C_SVHErrnoServiceCreate", Entry(ErrnoServiceCreate)},
            {"C_SVHErrnoServiceSetErrno", Entry(SetErrno)}};
}

class BaseServices : public testing::Test {
protected:
    BaseServices() {
        ResetServicesTwin();
        ResetServiceLoader();
        GetFrameTwin().temporaryFolder = u"C:\\Users\\Ann\\Temp\\";
        gAsked.clear();
        gInsideLogv = nullptr;
    }
    ~BaseServices() override {
        ResetServicesTwin();
        ResetServiceLoader();
        ResetFrameTwin();
    }

    void Install(const char* path, const TwinEntries& entries = AllEntries()) {
        twin.files.insert(path);
        twin.modules[path] = entries;
    }
    std::size_t CallsThatBegin(const std::string& words) const {
        std::size_t count = 0;
        for (const std::string& call : twin.calls) count += call.starts_with(words);
        return count;
    }
    const std::vector<std::string>& Shown() const { return twin.debuggerTexts; }

    ServicesTwin& twin = GetServicesTwin();
};

TEST_F(BaseServices, AreSearchedInTheFolderOfTheLibraryAndThenInTheWorkingDirectory) {
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App", "C:\\Work"));
    EXPECT_THAT(twin.calls,
                ElementsAre("IsFile C:\\App\\svhservices.dll", "IsFile C:\\Work\\svhservices.dll"));
}

TEST_F(BaseServices, AreSearchedOnceIfBothFoldersAreOne) {
    twin.workingDirectory = "C:\\App";
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App"));
}

TEST_F(BaseServices, AreSearchedWhereTheSystemNamesAFolder) {
    twin.moduleFile.clear();
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\Work"));
    ResetServiceLoader();
    twin.moduleFile = "C:\\pavane.dll";
    twin.workingDirectory.clear();
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\"));
}

TEST_F(BaseServices, AreNotSearchedInATemporaryWorkingDirectory) {
    Install("C:\\Users\\Ann\\Temp\\unpacked\\svhservices.dll");
    twin.workingDirectory = "C:\\Users\\Ann\\Temp\\unpacked";
    twin.places["C:\\Users\\Ann\\Temp\\"] = {"C:\\Users\\Ann\\Temp", false};
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App"));
    EXPECT_FALSE(GetServiceLoader().baseLoaded);
}

TEST_F(BaseServices, AreNotSearchedInTheLongestTemporaryFolder) {
    twin.workingDirectory = "C:\\" + std::string(255, 'a') + "\\";
    GetFrameTwin().temporaryFolder =
        std::u16string(twin.workingDirectory.begin(), twin.workingDirectory.end());
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App"));
}

TEST_F(BaseServices, KnowATemporaryFolderByAnyOfItsNames) {
    twin.workingDirectory = "D:\\Link";
    twin.places = {{"D:\\Link", {"C:\\Users\\Ann\\Temp\\x", false}}};
    GetFrameTwin().temporaryFolder = u"C:\\Users\\ANN~1\\Temp\\";
    twin.places["C:\\Users\\ANN~1\\Temp\\"] = {"C:\\Users\\Ann\\Temp", false};
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App"));
}

TEST_F(BaseServices, AreNotSearchedInAWorkingDirectoryOnTheNetwork) {
    const struct {
        const char* directory;
        FolderPlace place;
    } cases[] = {
        {"N:\\Work", {"\\\\?\\N:\\Work", true}},
        {"D:\\Link", {"\\\\?\\UNC\\server\\share", false}},
        {"\\\\server\\share", {"\\\\?\\C:\\Shared", false}},
    };
    for (const auto& [directory, place] : cases) {
        ResetServiceLoader();
        twin.workingDirectory = directory;
        twin.places[directory] = place;
        EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App")) << directory;
    }
}

TEST_F(BaseServices, AreSearchedInTheFolderOfTheLibraryWhereverThatIs) {
    twin.moduleFile = "C:\\Users\\Ann\\Temp\\pavane.dll";
    twin.places["C:\\Users\\Ann\\Temp"] = {"C:\\Users\\Ann\\Temp", true};
    EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\Users\\Ann\\Temp", "C:\\Work"));
}

TEST_F(BaseServices, NeedNoTemporaryFolder) {
    for (const std::size_t length : {std::size_t{0}, std::size_t{300}}) {
        ResetServiceLoader();
        GetFrameTwin().temporaryFolder = std::u16string(length, u'a');
        EXPECT_THAT(GetServiceLoader().searchPaths, ElementsAre("C:\\App", "C:\\Work")) << length;
    }
}

TEST_F(BaseServices, CostTwoLinesOfTheDebuggerAndTwoLooksIfTheyAreMissing) {
    ResolveBaseServices();
    ResolveBaseServices();
    EXPECT_EQ(BaseServicesFolder(), "");
    EXPECT_FALSE(GetServiceLoader().baseLoaded);
    EXPECT_FALSE(GetServiceLoader().useLoggingService);
    EXPECT_THAT(Shown(), ElementsAre("ServiceLoader: Failed to find svhservices.dll\r\n",
                                     "ServiceLoader: ERROR: base services library failed to load\r\n"));
    EXPECT_EQ(twin.calls.size(), 2u);
}

TEST_F(BaseServices, AreNotSearchedAgain) {
    ResolveBaseServices();
    Install(kBesideTheLibrary);
    ResolveBaseServices();
    EXPECT_FALSE(GetServiceLoader().baseLoaded);
    EXPECT_EQ(CallsThatBegin("IsFile"), 2u);
    EXPECT_EQ(CallsThatBegin("Load"), 0u);
}

TEST_F(BaseServices, AreTakenFromTheFolderOfTheLibraryFirst) {
    Install(kBesideTheLibrary);
    Install(kInTheWorkingDirectory);
    EXPECT_TRUE(GetServiceLoader().baseLoaded);
    EXPECT_EQ(BaseServicesFolder(), "C:\\App");
    EXPECT_EQ(CallsThatBegin("IsFile"), 1u);
}

TEST_F(BaseServices, AreTakenFromTheWorkingDirectoryInTheSecondRound) {
    Install(kInTheWorkingDirectory);
    EXPECT_TRUE(GetServiceLoader().baseLoaded);
    EXPECT_EQ(BaseServicesFolder(), "C:\\Work");
}

TEST_F(BaseServices, LogThroughTheirOwnServiceFromTheStart) {
    Install(kBesideTheLibrary);
    ServiceLoader& loader = GetServiceLoader();
    EXPECT_THAT(gAsked, ElementsAre("ServiceLoader 5 [] using logging service now"));
    AddSearchPath(loader, "C:\\More");
    EXPECT_EQ(gAsked.back(), "ServiceLoader 4 [%s] adding search path: C:\\More");
    EXPECT_EQ(FindSymbol(loader, kBaseServices, "C_SVHOther"), nullptr);
    EXPECT_EQ(gAsked.back(), "ServiceLoader 2 [%s %s] Unable to locate symbol C_SVHOther in svhservices.dll");
    EXPECT_EQ(loader.libraries.begin()->second.opened, 1);
    EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(BaseServices, AreResolvedAllAtOnce) {
    Install(kBesideTheLibrary);
    ResolveBaseServices();
    EXPECT_EQ(CallsThatBegin("Load"), 1u);
    EXPECT_EQ(CallsThatBegin("Find"), 4u);
    SVHRelease(&gErrorService);
    EXPECT_EQ(SVHErrnoServiceCreate(), &gErrorService);
    SVHErrnoServiceSetErrno(&gErrorService, 4000000000u);
    EXPECT_EQ(CallsThatBegin("Find"), 4u) << "a worker would have asked the system";
    EXPECT_THAT(gAsked, ElementsAre("ServiceLoader 5 [] using logging service now", "release it", "create",
                                    "set 4000000000"));
}

// Calls the wrapper as a function with arguments of its own would.
void LogWith(void* session, const char* component, int level, const char* formats, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    SVHLogv(session, component, level, formats, format, arguments);
    va_end(arguments);
}

TEST_F(BaseServices, LogTheLineOfACallerAsItIs) {
    Install(kBesideTheLibrary);
    ResolveBaseServices();
    LogWith(&gErrorService, "Word Service", 9, "%d %s", "%d %s", 7, "words");
    EXPECT_EQ(gAsked.back(), "session Word Service 9 [%d %s] 7 words");
}

TEST_F(BaseServices, ShowTheDebuggerEachEntryPointThatIsMissing) {
    ResolveBaseServices();
    twin.debuggerTexts.clear();
    SVHRelease(&gErrorService);
    SVHLogv(nullptr, "Component", 1, "", "text", {});
    EXPECT_EQ(SVHErrnoServiceCreate(), nullptr);
    SVHErrnoServiceSetErrno(nullptr, 1);
    EXPECT_THAT(Shown(), ElementsAre("ServiceLoader: failed to find C_SVHRelease\n\r\n",
                                     "Logging: failed to find C_SVHLogv\n\r\n",
                                     "Errno Service: failed to find SVHErrnoServiceCreate\n\r\n",
                                     "Errno Service: failed to find SVHErrnoServiceSetErrno\n\r\n"));
}

TEST_F(BaseServices, EndTheirMessagesAtTheDebuggerIfTheLoggingServiceIsMissing) {
    TwinEntries entries = AllEntries();
    entries.erase("C_SVHLogv");
    Install(kBesideTheLibrary, entries);
    static_cast<void>(GetServiceLoader());
    EXPECT_THAT(Shown(),
                ElementsAre("ServiceLoader: Unable to locate symbol C_SVHLogv in svhservices.dll\r\n",
                            "Logging: failed to find C_SVHLogv\n\r\n"));
    twin.debuggerTexts.clear();
    AddSearchPath(GetServiceLoader(), "C:\\More");
    EXPECT_EQ(Shown().size(), 2u);
    SVHRelease(&gErrorService);
    EXPECT_THAT(gAsked, ElementsAre("release it"));
}

TEST_F(BaseServices, FailSoftlyAtEveryCallIfTheFileIsCorrupt) {
    twin.files.insert(kBesideTheLibrary);
    EXPECT_TRUE(GetServiceLoader().baseLoaded) << "found, and not loaded yet";
    EXPECT_EQ(BaseServicesFolder(), "C:\\App");
    const std::vector<std::string> once = {
        "ServiceLoader: Failed to open library C:\\App\\svhservices.dll\r\n",
        "Logging: failed to find C_SVHLogv\n\r\n"};
    EXPECT_EQ(Shown(), once);
    twin.debuggerTexts.clear();
    twin.calls.clear();
    EXPECT_EQ(SVHErrnoServiceCreate(), nullptr);
    EXPECT_THAT(Shown(),
                ElementsAre(once[0], once[1], "Errno Service: failed to find SVHErrnoServiceCreate\n\r\n"));
    EXPECT_EQ(CallsThatBegin("Load"), 2u) << "for the symbol, and for the message about it";
}

TEST_F(BaseServices, AreLoadedOnceForAllRunsIfTheFileIsCorrupt) {
    twin.files.insert(kBesideTheLibrary);
    for (int run = 0; run < 3; ++run) ResolveBaseServices();
    EXPECT_EQ(CallsThatBegin("Load"), 1u) << "each try may take long";
}

// A wrapper that creates a service, as a later entry point would have one.
constexpr ServiceEntry<ServiceHandle(int)> kWordServiceCreate = {"C_SVHWordServiceCreate", "Word Service",
                                                                 "failed to find C_SVHWordServiceCreate"};
void* WordServiceCreate(int size) {
    gAsked.push_back("create of " + std::to_string(size));
    return &gErrorService;
}

TEST_F(BaseServices, RecordAnErrorNumberForAServiceThatCannotBeCreated) {
    Install(kBesideTheLibrary);
    ResolveBaseServices();
    gAsked.clear();
    EXPECT_EQ(CreateServiceObject(kWordServiceCreate, 7), nullptr);
    EXPECT_THAT(gAsked,
                ElementsAre("ServiceLoader 2 [%s %s] Unable to locate symbol C_SVHWordServiceCreate in "
                            "svhservices.dll",
                            "create", "set 15"));
    EXPECT_THAT(Shown(),
                ElementsAre("Word Service: failed to find C_SVHWordServiceCreate, (Errno = 15)\r\n"));
}

TEST_F(BaseServices, ReturnNullForAServiceEvenWithoutTheWholeLibrary) {
    ResolveBaseServices();
    twin.debuggerTexts.clear();
    EXPECT_EQ(CreateServiceObject(kWordServiceCreate, 7), nullptr);
    EXPECT_THAT(Shown(),
                ElementsAre("Errno Service: failed to find SVHErrnoServiceCreate\n\r\n",
                            "Errno Service: failed to find SVHErrnoServiceSetErrno\n\r\n",
                            "Word Service: failed to find C_SVHWordServiceCreate, (Errno = 15)\r\n"));
}

TEST_F(BaseServices, CreateAServiceThatIsThere) {
    TwinEntries entries = AllEntries();
    entries["C_SVHWordServiceCreate"] = Entry(WordServiceCreate);
    Install(kBesideTheLibrary, entries);
    EXPECT_EQ(CreateServiceObject(kWordServiceCreate, 7), &gErrorService);
    EXPECT_EQ(gAsked.back(), "create of 7");
    EXPECT_THAT(Shown(), IsEmpty());
}

int ThrowAnError(int) { throw std::runtime_error("of the service"); }

TEST_F(BaseServices, TurnAnExceptionOfAServiceIntoTheNeutralResult) {
    constexpr ServiceEntry<int(int)> kThrowing = {"C_SVHThrow", "Throwing", "failed to find C_SVHThrow"};
    Install(kBesideTheLibrary, {{"C_SVHThrow", Entry(ThrowAnError)}});
    EXPECT_EQ(CallServiceEntry(kThrowing, 3), 0);
    constexpr ServiceEntry<bool()> kMissing = {"C_SVHIsThere", "Asking", "failed to find C_SVHIsThere"};
    EXPECT_FALSE(CallServiceEntry(kMissing));
}

TEST_F(BaseServices, AnswerAServiceThatCallsBack) {
    Install(kBesideTheLibrary);
    gInsideLogv = [] {
        SVHRelease(&gErrorService);
        EXPECT_TRUE(GetServiceLoader().baseLoaded);
        EXPECT_EQ(FindSymbol(GetServiceLoader(), kBaseServices, "C_SVHOther"), nullptr);
        ResolveBaseServices();
    };
    ResolveBaseServices();
    EXPECT_THAT(gAsked, ElementsAre("ServiceLoader 5 [] using logging service now", "release it"));
    EXPECT_THAT(Shown(),
                ElementsAre("ServiceLoader: Unable to locate symbol C_SVHOther in svhservices.dll\r\n"));
}

TEST_F(BaseServices, AnswerALibraryThatCallsBackWhileItStarts) {
    Install(kBesideTheLibrary);
    static int depth;
    depth = 0;
    twin.duringLoad = [] {
        if (++depth > 1) return; // the system starts a library once
        EXPECT_EQ(SVHErrnoServiceCreate(), &gErrorService);
        EXPECT_EQ(BaseServicesFolder(), "C:\\App");
        LoaderLog(GetServiceLoader(), kLoaderLevelMissing, "", "from inside");
    };
    ResolveBaseServices();
    EXPECT_THAT(gAsked, ElementsAre("create", "ServiceLoader 5 [] using logging service now"));
    EXPECT_THAT(Shown(), ElementsAre("ServiceLoader: from inside\r\n"));
}

TEST_F(BaseServices, AnswerAnotherThreadWhileTheyAreLoaded) {
    Install(kBesideTheLibrary);
    bool hasBegun = false;
    twin.duringLoad = [&] {
        if (std::exchange(hasBegun, true)) return; // the system lets the other thread in as well
        pavane_test::OnAnotherThread([] {
            EXPECT_EQ(BaseServicesFolder(), "C:\\App");
            EXPECT_EQ(SVHErrnoServiceCreate(), &gErrorService);
            LoaderLog(GetServiceLoader(), kLoaderLevelPath, "", "of another thread");
        });
    };
    ResolveBaseServices();
    EXPECT_THAT(gAsked, ElementsAre("create", "ServiceLoader 4 [] of another thread",
                                    "ServiceLoader 5 [] using logging service now"));
    EXPECT_THAT(Shown(), IsEmpty());
    EXPECT_EQ(CallsThatBegin("IsFile"), 1u) << "the search is over";
    EXPECT_EQ(GetServiceLoader().libraries.begin()->second.symbols.size(), 4u);
}

TEST_F(BaseServices, AnswerAnotherThreadWhileTheyLog) {
    Install(kBesideTheLibrary);
    gInsideLogv = [] {
        gInsideLogv = nullptr;
        pavane_test::OnAnotherThread([] { EXPECT_EQ(SVHErrnoServiceCreate(), &gErrorService); });
    };
    ResolveBaseServices();
    EXPECT_THAT(gAsked, ElementsAre("ServiceLoader 5 [] using logging service now", "create"));
    EXPECT_EQ(CallsThatBegin("Load"), 1u);
}

TEST_F(BaseServices, HaveOneLoaderForAllCallers) {
    EXPECT_EQ(&GetServiceLoader(), &GetServiceLoader());
    EXPECT_TRUE(GetServiceLoader().isStarted);
}

// As a worker that still logs while the process ends.
void UseTheLoaderAtTheEnd() {
    const ServiceLoader& loader = GetServiceLoader();
    std::_Exit(loader.searchPaths == std::vector<std::string>{"C:\\App", "C:\\Work"} ? 0 : 1);
}

// The process of the test is a new one: the loader is made after the function is registered, so that its
// destructor would run before it.
TEST(BaseServicesDeathTest, OutliveTheObjectsOfTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto endTheProcess = [] {
        std::atexit(UseTheLoaderAtTheEnd);
        static_cast<void>(GetServiceLoader());
        std::exit(2);
    };
    EXPECT_EXIT(endTheProcess(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace brixen::pvn
