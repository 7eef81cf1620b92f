// The service loader with real libraries: good ones, and files that are none.
#include "services/folder_rules.h"
#include "windows/services/companion_fixture.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <thread>

namespace brixen::pvn {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Lt;

using Milliseconds = ULONGLONG;

template <class Work>
Milliseconds TimeOf(Work&& work) {
    const ULONGLONG start = GetTickCount64();
    work();
    return GetTickCount64() - start;
}

// Called by the companion that calls back, while it is loaded and while it logs.
std::function<void()> gCallBack;

TEST_F(Companion, IsFoundAtOnceAndLoadedAtItsFirstSymbol) {
    const Path file = Install("good", folder / "app");
    EXPECT_TRUE(Add(folder / "app"));
    EXPECT_EQ(GetModuleHandleW(file.c_str()), nullptr);
    EXPECT_NE(Find("C_SVHRelease"), nullptr);
    EXPECT_EQ(GetModuleHandleW(file.c_str()), reinterpret_cast<HMODULE>(Entry().module));
    EXPECT_EQ(std::filesystem::path(reinterpret_cast<const char8_t*>(Entry().fullPath.c_str())).filename(),
              Path(kBaseServices));
    EXPECT_THAT(debugger.Get(), IsEmpty());
}

TEST_F(Companion, IsFoundInTheSecondFolder) {
    std::filesystem::create_directories(folder / "first");
    Install("good", folder / "second");
    EXPECT_FALSE(Add(folder / "first"));
    EXPECT_TRUE(Add(folder / "second"));
    EXPECT_EQ(Entry().foundIn, loader.searchPaths.at(1));
    EXPECT_NE(Find("C_SVHLogv"), nullptr);
}

TEST_F(Companion, IsFoundBelowAFolderOfAnyName) {
    const Path odd = folder / Path(u"Pr\u00E9sent \u05E9\u05DC\u05D5\u05DD \u65E5\u672C");
    Install("good", odd);
    EXPECT_TRUE(Add(odd));
    EXPECT_NE(Find("C_SVHRelease"), nullptr);
}

TEST_F(Companion, IsNotAFolderOfItsName) {
    std::filesystem::create_directories(folder / kBaseServices);
    EXPECT_FALSE(Add(folder.Path()));
    EXPECT_THAT(debugger.Get(), ElementsAre("ServiceLoader: Failed to find svhservices.dll\r\n"));
}

TEST_F(Companion, IsUsedByItsAlternateName) {
    std::filesystem::copy_file(CompanionFile("good"), folder / "other.dll");
    AddSearchPath(loader, Utf8(folder.Path()));
    EXPECT_TRUE(AddLibrary(loader, kBaseServices, "other.dll"));
    EXPECT_NE(Find("C_SVHRelease"), nullptr);
}

TEST_F(Companion, WithoutEntryPointsIsLoadedAndHasNone) {
    Install("without_entry_points", folder / "app");
    EXPECT_TRUE(Add(folder / "app"));
    EXPECT_EQ(Find("C_SVHRelease"), nullptr);
    EXPECT_EQ(Find("C_SVHLogv"), nullptr);
    EXPECT_NE(Entry().module, nullptr);
    EXPECT_NE(Find("C_SVHNothing"), nullptr);
    EXPECT_THAT(debugger.Get(),
                ElementsAre("ServiceLoader: Unable to locate symbol C_SVHRelease in svhservices.dll\r\n",
                            "ServiceLoader: Unable to locate symbol C_SVHLogv in svhservices.dll\r\n"));
}

// A file that is no library for this process.
struct CorruptFile {
    const char* name;
    std::string (*make)(const std::string& good);
};

std::string WithMachine(std::string bytes, std::uint16_t machine) {
    std::uint32_t header = 0;
    std::memcpy(&header, bytes.data() + 0x3C, sizeof header);
    std::memcpy(bytes.data() + header + 4, &machine, sizeof machine);
    return bytes;
}

constexpr CorruptFile kCorruptFiles[] = {
    {"empty", [](const std::string&) { return std::string(); }},
    {"text", [](const std::string&) { return std::string("This is no library.\r\n"); }},
    {"mark of an executable alone", [](const std::string&) { return std::string("MZ"); }},
    {"cut in its header", [](const std::string& good) { return good.substr(0, 100); }},
    {"cut after its header", [](const std::string& good) { return good.substr(0, 1024); }},
    {"32-bit x86", [](const std::string& good) { return WithMachine(good, 0x014C); }},
    {"64-bit ARM", [](const std::string& good) { return WithMachine(good, 0xAA64); }},
    {"zeros", [](const std::string& good) { return std::string(good.size(), '\0'); }},
};

TEST_F(Companion, ThatIsCorruptFailsAtEveryCallAndShowsNoMessageToTheUser) {
    const std::string good = BytesOf(CompanionFile("good"));
    ASSERT_GT(good.size(), 2048u);
    for (const CorruptFile& corrupt : kCorruptFiles) {
        const Path place = folder / corrupt.name;
        std::filesystem::create_directories(place);
        WriteBytes(place / kBaseServices, corrupt.make(good));
        ServiceLoader own;
        AddSearchPath(own, Utf8(place));
        debugger.Get().clear();
        EXPECT_TRUE(AddLibrary(own, kBaseServices, "")) << corrupt.name;
        const DWORD modeBefore = GetThreadErrorMode();
        // A message box would wait for its user.
        const Milliseconds time = TimeOf([&] {
            EXPECT_EQ(FindSymbol(own, kBaseServices, "C_SVHRelease"), nullptr) << corrupt.name;
            EXPECT_EQ(FindSymbol(own, kBaseServices, "C_SVHRelease"), nullptr) << corrupt.name;
        });
        EXPECT_LT(time, 2000u) << corrupt.name;
        EXPECT_EQ(GetThreadErrorMode(), modeBefore);
        const std::string line =
            "ServiceLoader: Failed to open library " + own.searchPaths.at(0) + "\\svhservices.dll\r\n";
        EXPECT_THAT(debugger.Get(), ElementsAre(line, line)) << corrupt.name;
    }
}

TEST_F(Companion, IsLoadedWithMessagesToTheUserTurnedOffForTheTimeBeing) {
    Install("good", folder / "app");
    EXPECT_TRUE(Add(folder / "app"));
    DWORD former = 0;
    ASSERT_TRUE(SetThreadErrorMode(SEM_NOGPFAULTERRORBOX, &former));
    const auto mode = FindAs<unsigned()>("CompanionErrorMode");
    EXPECT_EQ(GetThreadErrorMode(), DWORD(SEM_NOGPFAULTERRORBOX));
    SetThreadErrorMode(former, nullptr);
    ASSERT_NE(mode, nullptr);
    EXPECT_EQ(mode(), unsigned(SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX));
}

TEST_F(Companion, ThatIsSlowToLoadDelaysOnce) {
    Install("slow", folder / "app");
    EXPECT_THAT(TimeOf([&] { EXPECT_TRUE(Add(folder / "app")); }), Lt(300u));
    EXPECT_THAT(TimeOf([&] { EXPECT_NE(Find("C_SVHRelease"), nullptr); }), Ge(350u));
    EXPECT_THAT(TimeOf([&] { EXPECT_NE(Find("C_SVHLogv"), nullptr); }), Lt(300u));
}

TEST_F(Companion, FindsWhatItNeedsInItsOwnFolder) {
    Install("in_need", folder / "app");
    Install("helper", folder / "app", "companion-helper.dll");
    EXPECT_TRUE(Add(folder / "app"));
    const auto number = FindAs<int()>("CompanionNumber");
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number(), 42);
}

TEST_F(Companion, FindsWhatItNeedsOfTheSystem) {
    Install("in_need_of_system", folder / "app");
    EXPECT_TRUE(Add(folder / "app"));
    ASSERT_EQ(GetModuleHandleW(L"lz32.dll"), nullptr) << "nothing else needs it";
    const auto number = FindAs<int()>("CompanionNumber");
    ASSERT_NE(number, nullptr);
    EXPECT_LT(number(), 0) << "the error of a handle that is none";
}

TEST_F(Companion, DoesNotFindWhatItNeedsElsewhere) {
    Install("in_need", folder / "app");
    Install("helper", folder / "elsewhere", "companion-helper.dll");
    EXPECT_TRUE(Add(folder / "app"));
    const DLL_DIRECTORY_COOKIE added = AddDllDirectory((folder / "elsewhere").c_str());
    EXPECT_EQ(Find("CompanionNumber"), nullptr);
    RemoveDllDirectory(added);
    const Path ofProgram = Path(FolderOfFile(ModuleFile())) / "companion-helper.dll";
    std::filesystem::remove(ofProgram);
    std::filesystem::copy_file(CompanionFile("helper", "companion-helper.dll"), ofProgram);
    EXPECT_EQ(Find("CompanionNumber"), nullptr);
    std::filesystem::remove(ofProgram);
    const Path former = std::filesystem::current_path();
    std::filesystem::current_path(folder / "elsewhere");
    EXPECT_EQ(Find("CompanionNumber"), nullptr);
    std::filesystem::current_path(former);
    wchar_t path[32768] = {};
    GetEnvironmentVariableW(L"PATH", path, 32768);
    SetEnvironmentVariableW(L"PATH", (folder / "elsewhere").c_str());
    EXPECT_EQ(Find("CompanionNumber"), nullptr);
    SetEnvironmentVariableW(L"PATH", path);
    EXPECT_EQ(debugger.Get().size(), 4u);
}

// The loader of the process, which searches the working directory after the folder of this program.
class CompanionOfTheProcess : public Companion {
protected:
    CompanionOfTheProcess() : formerDirectory(std::filesystem::current_path()) {
        GetEnvironmentVariableW(L"TMP", formerTemporary, MAX_PATH);
    }
    ~CompanionOfTheProcess() override {
        gCallBack = nullptr;
        std::filesystem::current_path(formerDirectory);
        SetEnvironmentVariableW(L"TMP", formerTemporary);
    }

    // The folder of the test is inside the temporary folder, unless that is another one.
    void WorkIn(const char* name, const char* temporary = "temporary") {
        std::filesystem::create_directories(folder / name);
        std::filesystem::create_directories(folder / temporary);
        SetEnvironmentVariableW(L"TMP", (folder / temporary).c_str());
        std::filesystem::current_path(folder / name);
    }
    std::vector<std::string> Record() {
        const auto record = reinterpret_cast<const char* (*)()>(
            FindSymbol(GetServiceLoader(), kBaseServices, "CompanionRecord"));
        std::istringstream text(record ? record() : "no record");
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }

private:
    const Path formerDirectory;
    wchar_t formerTemporary[MAX_PATH] = {};
};

TEST_F(CompanionOfTheProcess, IsTakenFromTheWorkingDirectory) {
    WorkIn("work");
    Install("good", folder / "work");
    ResolveBaseServices();
    EXPECT_TRUE(GetServiceLoader().baseLoaded);
    EXPECT_EQ(GetServiceLoader().searchPaths.size(), 2u);
    EXPECT_EQ(BaseServicesFolder(), GetServiceLoader().searchPaths.at(1));
    EXPECT_TRUE(std::filesystem::equivalent(
        Path(reinterpret_cast<const char8_t*>(BaseServicesFolder().c_str())), folder / "work"));
    EXPECT_EQ(GetServiceLoader().libraries.begin()->second.symbols.size(), 4u);
    EXPECT_THAT(debugger.Get(), IsEmpty());
}

TEST_F(CompanionOfTheProcess, IsNotTakenFromTheTemporaryFolder) {
    for (const char* work : {"temporary", "temporary/deep"}) {
        ResetServiceLoader();
        WorkIn(work);
        if (!std::filesystem::exists(folder / work / kBaseServices)) Install("good", folder / work);
        ResolveBaseServices();
        EXPECT_FALSE(GetServiceLoader().baseLoaded) << work;
        EXPECT_EQ(GetServiceLoader().searchPaths.size(), 1u) << work;
        EXPECT_EQ(BaseServicesFolder(), "") << work;
    }
}

TEST_F(CompanionOfTheProcess, IsNotTakenFromAServer) {
    const Path share = "\\\\pavane\\share";
    ASSERT_TRUE(std::filesystem::is_directory(share)) << "scripts/wine_prefix makes this folder";
    WorkIn("work");
    std::filesystem::remove(share / kBaseServices);
    std::filesystem::copy_file(CompanionFile("good"), share / kBaseServices);
    std::filesystem::current_path(share);
    ResolveBaseServices();
    std::filesystem::current_path(folder.Path());
    std::filesystem::remove(share / kBaseServices);
    EXPECT_FALSE(GetServiceLoader().baseLoaded);
    EXPECT_EQ(GetServiceLoader().searchPaths.size(), 1u);
}

TEST_F(CompanionOfTheProcess, CostsTwoLinesAndLittleTimeIfItIsMissing) {
    WorkIn("work");
    Milliseconds best = 10000;
    for (int i = 0; i < 5; ++i) {
        ResetServiceLoader();
        debugger.Get().clear();
        best = std::min(best, TimeOf([] { ResolveBaseServices(); }));
        ResolveBaseServices();
        EXPECT_THAT(debugger.Get(),
                    ElementsAre("ServiceLoader: Failed to find svhservices.dll\r\n",
                                "ServiceLoader: ERROR: base services library failed to load\r\n"));
    }
    EXPECT_LT(best, 50u);
}

TEST_F(CompanionOfTheProcess, TakesTheMessagesOfTheLoader) {
    WorkIn("work");
    Install("good", folder / "work");
    LoaderLog(GetServiceLoader(), kLoaderLevelMissing, "%s %d", "%s and %d", "one", 2);
    EXPECT_EQ(FindSymbol(GetServiceLoader(), kBaseServices, "C_SVHOther"), nullptr);
    EXPECT_THAT(Record(), ElementsAre("ServiceLoader 5 [] using logging service now",
                                      "ServiceLoader 3 [%s %d] one and 2",
                                      "ServiceLoader 2 [%s %s] Unable to locate symbol C_SVHOther in "
                                      "svhservices.dll"));
    EXPECT_THAT(debugger.Get(), IsEmpty());
}

TEST_F(CompanionOfTheProcess, IsCalledThroughTheWrappers) {
    WorkIn("work");
    Install("good", folder / "work");
    const ServiceHandle errors = SVHErrnoServiceCreate();
    SVHErrnoServiceSetErrno(errors, 4000000000u);
    SVHRelease(errors);
    constexpr ServiceEntry<ServiceHandle()> kMissing = {"C_SVHWordServiceCreate", "Word Service",
                                                        "failed to find C_SVHWordServiceCreate"};
    EXPECT_EQ(CreateServiceObject(kMissing), nullptr);
    EXPECT_THAT(Record(),
                ElementsAre("ServiceLoader 5 [] using logging service now", "create", "set 1 4000000000",
                            "release 1",
                            "ServiceLoader 2 [%s %s] Unable to locate symbol C_SVHWordServiceCreate "
                            "in svhservices.dll",
                            "create", "set 1 15"));
    EXPECT_THAT(debugger.Get(),
                ElementsAre("Word Service: failed to find C_SVHWordServiceCreate, (Errno = 15)\r\n"));
}

TEST_F(CompanionOfTheProcess, MayCallBackWhileItIsLoadedAndWhileItLogs) {
    WorkIn("work");
    Install("calling_back", folder / "work");
    int calls = 0, depth = 0, deepest = 0;
    gCallBack = [&] {
        ++calls;
        deepest = std::max(deepest, ++depth);
        LoaderLog(GetServiceLoader(), kLoaderLevelMissing, "%d", "from inside %d", calls);
        EXPECT_NE(FindSymbol(GetServiceLoader(), kBaseServices, "C_SVHRelease"), nullptr);
        SVHRelease(nullptr);
        ResolveBaseServices();
        --depth;
    };
    ResolveBaseServices();
    EXPECT_EQ(calls, 2) << "once for the start, once for the first message";
    EXPECT_EQ(deepest, 1);
    EXPECT_THAT(Record(),
                ElementsAre("release 0", "ServiceLoader 5 [] using logging service now", "release 0"));
    EXPECT_THAT(debugger.Get(),
                ElementsAre("ServiceLoader: from inside 1\r\n", "ServiceLoader: from inside 2\r\n"));
}

TEST_F(CompanionOfTheProcess, ThatIsSlowToLoadIsLoadedOnceForTwoThreads) {
    Install("slow", folder / "app");
    EXPECT_TRUE(Add(folder / "app"));
    std::atomic<int> starts = 0;
    gCallBack = [&] { ++starts; }; // its load begins, and takes its time
    std::atomic<bool> isOtherReady = false, isOver = false;
    Milliseconds ofTables = 10000;
    Milliseconds ofSymbol = 0;
    EntryPoint found = nullptr;
    std::thread other([&] {
        isOtherReady = true;
        while (starts == 0 && !isOver) SwitchToThread();
        ofTables = TimeOf([&] {
            EXPECT_FALSE(IsLoaded(loader, kBaseServices));
            EXPECT_TRUE(AddLibrary(loader, kBaseServices, ""));
        });
        ofSymbol = TimeOf([&] { found = Find("C_SVHRelease"); });
    });
    while (!isOtherReady) SwitchToThread(); // a load keeps new threads from their start
    const EntryPoint release = Find("C_SVHRelease");
    isOver = true;
    other.join();
    EXPECT_NE(release, nullptr);
    EXPECT_EQ(found, release);
    EXPECT_EQ(starts, 1);
    EXPECT_THAT(ofTables, Lt(300u)) << "the tables answer meanwhile";
    EXPECT_THAT(ofSymbol, Lt(2000u));
    EXPECT_THAT(debugger.Get(), IsEmpty());
}

TEST_F(CompanionOfTheProcess, AnswersAnotherThreadWhileItLogs) {
    WorkIn("work");
    Install("calling_back", folder / "work");
    gCallBack = [] {
        if (!IsLoaded(GetServiceLoader(), kBaseServices))
            return; // its start, where no thread can be waited for
        std::thread([] { SVHRelease(nullptr); }).join();
    };
    ResolveBaseServices();
    EXPECT_THAT(Record(), ElementsAre("ServiceLoader 5 [] using logging service now", "release 0"));
    EXPECT_THAT(debugger.Get(), IsEmpty());
}

TEST_F(CompanionOfTheProcess, ThatIsCorruptLeavesTheProcessAlone) {
    WorkIn("work");
    WriteBytes(folder / "work" / kBaseServices, "This is no library.");
    ResolveBaseServices();
    EXPECT_EQ(SVHErrnoServiceCreate(), nullptr);
    SVHRelease(nullptr);
    EXPECT_THAT(debugger.Get(), Each(testing::AnyOf(testing::HasSubstr(": Failed to open library "),
                                                    testing::HasSubstr(": failed to find "))));
}

} // namespace

extern "C" __declspec(dllexport) void CompanionCallsBack() {
    if (gCallBack) gCallBack();
}

} // namespace brixen::pvn
