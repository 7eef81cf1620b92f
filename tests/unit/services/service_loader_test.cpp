#include "services/service_loader.h"

#include "frame/platform/frame_platform.h"
#include "services/platform/posix/services_twin.h"
#include "support/another_thread.h"
#include "support/failing_allocator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <utility>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> gMessages; // LEVEL [FORMATS] TEXT

void KeepMessage(void*, const char*, int level, const char* formats, const char* format,
                 std::va_list arguments) {
    char text[500];
    std::vsnprintf(text, sizeof text, format, arguments);
    gMessages.push_back(std::to_string(level) + " [" + formats + "] " + text);
}

ServiceLoader* gAnswering = nullptr;

void First() {}
void Second() {}

// A loader that passes its messages to the test, over the twin.
class ServiceLoaderTest : public testing::Test {
protected:
    ServiceLoaderTest() {
        ResetServicesTwin();
        loader.useLoggingService = true;
    }
    ~ServiceLoaderTest() override {
        ResetServicesTwin();
        gMessages.clear();
    }

    void AddFolders(const std::vector<std::string>& folders) {
        for (const std::string& folder : folders) AddSearchPath(loader, folder);
        gMessages.clear();
    }
    // A library that can be loaded, in the only folder.
    void AddGoodLibrary() {
        twin.files = {"C:\\App\\a.dll"};
        twin.modules["C:\\App\\a.dll"] = {{"First", First}, {"Second", Second}};
        AddFolders({"C:\\App"});
        ASSERT_TRUE(AddLibrary(loader, "a.dll", ""));
        gMessages.clear();
        twin.calls.clear();
    }
    std::vector<std::string> Loads() const {
        std::vector<std::string> loads;
        for (const std::string& call : twin.calls) {
            if (call.starts_with("Load ")) loads.push_back(call);
        }
        return loads;
    }

    ServicesTwin& twin = GetServicesTwin();
    ServiceLoader loader{KeepMessage};
};

TEST_F(ServiceLoaderTest, BeginsEmpty) {
    ServiceLoader fresh;
    EXPECT_THAT(fresh.libraries, IsEmpty());
    EXPECT_THAT(fresh.searchPaths, IsEmpty());
    EXPECT_EQ(fresh.overridePath, "");
    EXPECT_FALSE(fresh.baseLoaded);
    EXPECT_FALSE(fresh.useLoggingService);
    EXPECT_STREQ(fresh.version, "@(#) SVHServiceLoader: 2.0.1.10077 (BuildVersion: 53.352460; BuildDate: Tue "
                                "Jul 29 2008 16:32:22)");
}

TEST_F(ServiceLoaderTest, SearchesFoldersInTheOrderInWhichTheyWereAdded) {
    AddSearchPath(loader, "C:\\B");
    AddSearchPath(loader, "C:\\A");
    EXPECT_THAT(loader.searchPaths, ElementsAre("C:\\B", "C:\\A"));
    EXPECT_THAT(gMessages,
                ElementsAre("4 [%s] adding search path: C:\\B", "4 [%s] adding search path: C:\\A"));
}

TEST_F(ServiceLoaderTest, KeepsTheAbsoluteFormOfAFolder) {
    twin.resolved = {{"..\\B", "C:\\B"}};
    AddSearchPath(loader, "..\\B");
    AddSearchPath(loader, "C:\\B");
    EXPECT_THAT(loader.searchPaths, ElementsAre("C:\\B"));
    EXPECT_THAT(gMessages, ElementsAre("4 [%s] adding search path: C:\\B"));
}

TEST_F(ServiceLoaderTest, ComparesFoldersByteForByte) {
    AddSearchPath(loader, "C:\\b");
    AddSearchPath(loader, "C:\\B");
    AddSearchPath(loader, "C:\\B\\");
    EXPECT_THAT(loader.searchPaths, ElementsAre("C:\\b", "C:\\B", "C:\\B\\"));
}

TEST_F(ServiceLoaderTest, IgnoresAFolderWithoutAnAbsoluteForm) {
    twin.resolved = {{"odd", ""}};
    AddSearchPath(loader, "odd");
    EXPECT_THAT(loader.searchPaths, IsEmpty());
    EXPECT_THAT(gMessages, IsEmpty());
}

TEST_F(ServiceLoaderTest, FindsALibraryWithoutLoadingIt) {
    AddFolders({"C:\\A", "C:\\B", "C:\\C"});
    twin.files = {"C:\\B\\a.dll", "C:\\C\\a.dll"};
    twin.resolved = {{"C:\\B\\a.dll", "D:\\Real\\a.dll"}};
    EXPECT_TRUE(AddLibrary(loader, "a.dll", ""));
    ASSERT_EQ(loader.libraries.count("a.dll"), 1u);
    const LibraryEntry& entry = loader.libraries.find("a.dll")->second;
    EXPECT_EQ(entry.foundIn, "C:\\B");
    EXPECT_EQ(entry.fullPath, "D:\\Real\\a.dll");
    EXPECT_EQ(entry.module, nullptr);
    EXPECT_THAT(entry.symbols, IsEmpty());
    EXPECT_EQ(entry.opened, 1);
    EXPECT_EQ(FolderOfLibrary(loader, "a.dll"), "C:\\B");
    EXPECT_THAT(twin.calls, ElementsAre("IsFile C:\\A\\a.dll", "IsFile C:\\B\\a.dll"));
    EXPECT_THAT(gMessages, ElementsAre("5 [%s] looking for library C:\\A\\a.dll",
                                       "5 [%s] looking for library C:\\B\\a.dll",
                                       "5 [%s] Found library D:\\Real\\a.dll"));
}

TEST_F(ServiceLoaderTest, CountsALibraryThatIsAddedAgainWithoutASecondSearch) {
    AddGoodLibrary();
    EXPECT_TRUE(AddLibrary(loader, "a.dll", "other.dll"));
    EXPECT_EQ(loader.libraries.find("a.dll")->second.opened, 2);
    EXPECT_THAT(twin.calls, IsEmpty());
    EXPECT_THAT(gMessages, IsEmpty());
}

TEST_F(ServiceLoaderTest, StopsCountingAt255) {
    AddGoodLibrary();
    for (int i = 0; i < 300; ++i) EXPECT_TRUE(AddLibrary(loader, "a.dll", ""));
    EXPECT_EQ(loader.libraries.find("a.dll")->second.opened, 255);
}

TEST_F(ServiceLoaderTest, LogsALibraryThatIsNowhere) {
    AddFolders({"C:\\A"});
    EXPECT_FALSE(AddLibrary(loader, "a.dll", ""));
    EXPECT_FALSE(AddLibrary(loader, "a.dll", "b.dll"));
    EXPECT_THAT(loader.libraries, IsEmpty());
    EXPECT_EQ(FolderOfLibrary(loader, "a.dll"), "");
    EXPECT_THAT(gMessages,
                ElementsAre("5 [%s] looking for library C:\\A\\a.dll", "3 [%s] Failed to find a.dll",
                            "5 [%s] looking for library C:\\A\\a.dll",
                            "3 [%s %s] Failed to find a.dll (or b.dll)"));
}

TEST_F(ServiceLoaderTest, TriesTheAlternateInEachFolderAndEntersItUnderTheName) {
    AddFolders({"C:\\A", "C:\\B"});
    twin.files = {"C:\\A\\other.dll", "C:\\B\\a.dll"};
    EXPECT_TRUE(AddLibrary(loader, "a.dll", "other.dll"));
    EXPECT_EQ(loader.libraries.count("other.dll"), 0u);
    ASSERT_EQ(loader.libraries.count("a.dll"), 1u);
    EXPECT_EQ(loader.libraries.find("a.dll")->second.fullPath, "C:\\A\\other.dll");
    EXPECT_THAT(gMessages, ElementsAre("5 [%s] looking for library C:\\A\\a.dll",
                                       "5 [%s] Found library C:\\A\\other.dll"));
}

TEST_F(ServiceLoaderTest, PrefersTheNameToTheAlternate) {
    AddFolders({"C:\\A"});
    twin.files = {"C:\\A\\other.dll", "C:\\A\\a.dll"};
    EXPECT_TRUE(AddLibrary(loader, "a.dll", "other.dll"));
    EXPECT_EQ(loader.libraries.find("a.dll")->second.fullPath, "C:\\A\\a.dll");
    EXPECT_THAT(twin.calls, ElementsAre("IsFile C:\\A\\a.dll"));
}

TEST_F(ServiceLoaderTest, GoesOnAfterAFileWhosePathDoesNotResolve) {
    AddFolders({"C:\\A", "C:\\B"});
    twin.files = {"C:\\A\\a.dll", "C:\\A\\other.dll", "C:\\B\\a.dll"};
    twin.resolved = {{"C:\\A\\a.dll", ""}, {"C:\\A\\other.dll", ""}};
    EXPECT_TRUE(AddLibrary(loader, "a.dll", "other.dll"));
    EXPECT_EQ(FolderOfLibrary(loader, "a.dll"), "C:\\B");
    EXPECT_THAT(gMessages,
                ElementsAre("5 [%s] looking for library C:\\A\\a.dll",
                            "2 [%s] Found library C:\\A\\a.dll but could not resolve the path",
                            "2 [%s] Found library C:\\A\\other.dll but could not resolve the path",
                            "5 [%s] looking for library C:\\B\\a.dll", "5 [%s] Found library C:\\B\\a.dll"));
}

TEST_F(ServiceLoaderTest, SearchesOnlyTheOverridingFolder) {
    AddFolders({"C:\\A"});
    loader.overridePath = "C:\\Only";
    twin.files = {"C:\\A\\a.dll"};
    EXPECT_FALSE(AddLibrary(loader, "a.dll", ""));
    twin.files = {"C:\\A\\a.dll", "C:\\Only\\a.dll"};
    EXPECT_TRUE(AddLibrary(loader, "a.dll", ""));
    EXPECT_EQ(FolderOfLibrary(loader, "a.dll"), "C:\\Only");
}

TEST_F(ServiceLoaderTest, LoadsALibraryAtItsFirstSymbolOnceAndRemembersHits) {
    AddGoodLibrary();
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
    EXPECT_EQ(FindSymbol(loader, "a.dll", "Second"), Second);
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
    EXPECT_THAT(twin.calls, ElementsAre("Load C:\\App\\a.dll", "Find First", "Find Second"));
    EXPECT_EQ(loader.libraries.find("a.dll")->second.symbols.size(), 2u);
    EXPECT_THAT(gMessages, IsEmpty());
}

TEST_F(ServiceLoaderTest, ResolvesThePathOnceMoreBeforeItLoads) {
    AddGoodLibrary();
    twin.resolved = {{"C:\\App\\a.dll", "D:\\Moved\\a.dll"}};
    twin.modules = {{"D:\\Moved\\a.dll", {{"First", First}}}};
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
    EXPECT_THAT(Loads(), ElementsAre("Load D:\\Moved\\a.dll"));
}

TEST_F(ServiceLoaderTest, LogsASymbolOfALibraryThatWasNotAdded) {
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), nullptr);
    EXPECT_THAT(gMessages, ElementsAre("5 [%s %s] Symbol First can't be found in library a.dll because the "
                                       "library has not been added to the loader"));
    EXPECT_THAT(twin.calls, IsEmpty());
}

TEST_F(ServiceLoaderTest, TriesACorruptFileAgainAtEveryCall) {
    AddGoodLibrary();
    twin.modules.clear();
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), nullptr);
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), nullptr);
    EXPECT_EQ(Loads().size(), 2u);
    EXPECT_THAT(gMessages, ElementsAre("2 [%s] Failed to open library C:\\App\\a.dll",
                                       "2 [%s] Failed to open library C:\\App\\a.dll"));
    EXPECT_EQ(loader.libraries.find("a.dll")->second.module, nullptr);
    twin.modules["C:\\App\\a.dll"] = {{"First", First}};
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
}

TEST_F(ServiceLoaderTest, DoesNotLoadAPathThatNoLongerResolves) {
    AddGoodLibrary();
    twin.resolved = {{"C:\\App\\a.dll", ""}};
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), nullptr);
    EXPECT_THAT(Loads(), IsEmpty());
    EXPECT_THAT(gMessages, ElementsAre("2 [%s] Failed to open library C:\\App\\a.dll"));
}

TEST_F(ServiceLoaderTest, AsksForAMissingSymbolAtEveryCall) {
    AddGoodLibrary();
    EXPECT_EQ(FindSymbol(loader, "a.dll", "Third"), nullptr);
    EXPECT_EQ(FindSymbol(loader, "a.dll", "Third"), nullptr);
    EXPECT_THAT(twin.calls, ElementsAre("Load C:\\App\\a.dll", "Find Third", "Find Third"));
    EXPECT_THAT(gMessages, ElementsAre("2 [%s %s] Unable to locate symbol Third in a.dll",
                                       "2 [%s %s] Unable to locate symbol Third in a.dll"));
    EXPECT_THAT(loader.libraries.find("a.dll")->second.symbols, IsEmpty());
}

TEST_F(ServiceLoaderTest, AnswersALibraryThatCallsBackWhileItIsLoaded) {
    AddGoodLibrary();
    int depth = 0;
    EntryPoint inside = nullptr;
    twin.duringLoad = [&] {
        if (++depth > 1) return; // the system starts a library once
        AddSearchPath(loader, "C:\\More");
        EXPECT_TRUE(AddLibrary(loader, "a.dll", ""));
        inside = FindSymbol(loader, "a.dll", "Second");
    };
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
    EXPECT_EQ(inside, Second);
    EXPECT_THAT(loader.searchPaths, ElementsAre("C:\\App", "C:\\More"));
}

TEST_F(ServiceLoaderTest, AnswersAnotherThreadWhileALibraryIsLoaded) {
    AddGoodLibrary();
    bool hasBegun = false;
    EntryPoint ofOther = nullptr;
    twin.duringLoad = [&] {
        if (std::exchange(hasBegun, true)) return; // the system lets the other thread in as well
        pavane_test::OnAnotherThread([&] {
            EXPECT_FALSE(IsLoaded(loader, "a.dll"));
            EXPECT_TRUE(AddLibrary(loader, "a.dll", ""));
            AddSearchPath(loader, "C:\\More");
            ofOther = FindSymbol(loader, "a.dll", "First");
            EXPECT_TRUE(IsLoaded(loader, "a.dll"));
        });
    };
    EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
    EXPECT_EQ(ofOther, First);
    const LibraryEntry& entry = loader.libraries.find("a.dll")->second;
    EXPECT_EQ(entry.module, reinterpret_cast<NativeModule>(&twin.modules["C:\\App\\a.dll"]));
    EXPECT_EQ(entry.opened, 2);
    EXPECT_EQ(entry.symbols.size(), 1u);
    EXPECT_EQ(FindSymbol(loader, "a.dll", "Second"), Second);
    EXPECT_EQ(Loads().size(), 2u) << "one of each thread, and none after them";
    EXPECT_THAT(gMessages, ElementsAre("4 [%s] adding search path: C:\\More"));
}

// Another thread overtakes during the message `gAtMessage`.
ServiceLoader* gOvertaken = nullptr;
std::string gAtMessage;
void (*gInBetween)() = nullptr;

void LogvThatIsOvertaken(void*, const char*, int, const char*, const char* format, std::va_list) {
    if (format != gAtMessage) return;
    gAtMessage.clear();
    pavane_test::OnAnotherThread(gInBetween);
}

TEST_F(ServiceLoaderTest, KeepsWhatAFasterThreadHasAdded) {
    ServiceLoader own{LogvThatIsOvertaken};
    gOvertaken = &own;
    own.useLoggingService = true;
    twin.files = {"C:\\A\\a.dll"};
    twin.modules = {{"C:\\A\\a.dll", {{"First", First}}}};
    gAtMessage = "adding search path: %s";
    gInBetween = [] { AddSearchPath(*gOvertaken, "C:\\A"); };
    AddSearchPath(own, "C:\\A");
    EXPECT_THAT(own.searchPaths, ElementsAre("C:\\A"));
    gAtMessage = "looking for library %s";
    gInBetween = [] {
        EXPECT_TRUE(AddLibrary(*gOvertaken, "a.dll", ""));
        EXPECT_EQ(FindSymbol(*gOvertaken, "a.dll", "First"), First);
    };
    EXPECT_TRUE(AddLibrary(own, "a.dll", ""));
    EXPECT_TRUE(IsLoaded(own, "a.dll"));
    EXPECT_EQ(own.libraries.find("a.dll")->second.opened, 2);
}

TEST_F(ServiceLoaderTest, AnswersAnotherThreadInEachOfItsMessages) {
    ServiceLoader own{[](void*, const char*, int, const char*, const char* format, std::va_list) {
        gMessages.push_back(format);
        pavane_test::OnAnotherThread([] { EXPECT_FALSE(IsLoaded(*gAnswering, "other.dll")); });
    }};
    gAnswering = &own;
    own.useLoggingService = true;
    twin.files = {"C:\\A\\a.dll", "C:\\A\\b.dll"};
    twin.resolved = {{"C:\\A\\b.dll", ""}};
    AddSearchPath(own, "C:\\A");
    EXPECT_TRUE(AddLibrary(own, "a.dll", ""));
    EXPECT_FALSE(AddLibrary(own, "b.dll", ""));
    EXPECT_EQ(FindSymbol(own, "a.dll", "First"), nullptr);
    EXPECT_EQ(FindSymbol(own, "c.dll", "First"), nullptr);
    twin.modules["C:\\A\\a.dll"] = {};
    EXPECT_EQ(FindSymbol(own, "a.dll", "First"), nullptr);
    EXPECT_EQ(gMessages.size(), 9u);
}

TEST_F(ServiceLoaderTest, ServesManyThreadsAtOnce) {
    AddGoodLibrary();
    static ServiceLoader* shared;
    shared = &loader;
    static std::atomic<int> misses;
    misses = 0;
    const auto use = [](void*) -> unsigned long {
        for (int i = 0; i < 200; ++i) {
            if (FindSymbol(*shared, "a.dll", "First") != First) ++misses;
            if (FindSymbol(*shared, "a.dll", "Second") != Second) ++misses;
            if (!AddLibrary(*shared, "a.dll", "")) ++misses;
            AddSearchPath(*shared, "C:\\" + std::to_string(i % 7));
            if (FolderOfLibrary(*shared, "a.dll") != "C:\\App") ++misses;
        }
        return 0;
    };
    std::vector<NativeThread> threads;
    for (int i = 0; i < 4; ++i) threads.push_back(StartThread(use, nullptr));
    for (const NativeThread thread : threads) {
        unsigned long code = 0;
        EXPECT_TRUE(WaitForThread(thread, 60000, &code));
        CloseThread(thread);
    }
    EXPECT_EQ(misses, 0);
    EXPECT_EQ(loader.searchPaths.size(), 8u);
}

TEST(ServiceLoaderWithoutMemory, FailsSoftlyAndKeepsItsTables) {
    const auto use = [] {
        ResetServicesTwin();
        ServiceLoader loader;
        {
            const std::string folder = "C:\\A folder with a long name";
            GetServicesTwin().files = {folder + "\\a.dll"};
            GetServicesTwin().modules[folder + "\\a.dll"] = {{"First", First}};
            AddSearchPath(loader, folder);
        }
        if (AddLibrary(loader, "a.dll", "")) {
            const EntryPoint found = FindSymbol(loader, "a.dll", "First");
            EXPECT_TRUE(found == First || found == nullptr);
            EXPECT_EQ(FindSymbol(loader, "a.dll", "First"), First);
        }
        ResetServicesTwin();
    };
    const auto useGuarded = [&] {
        try {
            use();
        } catch (const std::bad_alloc&) { // of the test itself
            ResetServicesTwin();
        }
    };
    EXPECT_GT(pavane_test::ForEveryFailingAllocation(useGuarded), 10u);
}

} // namespace
} // namespace brixen::pvn
