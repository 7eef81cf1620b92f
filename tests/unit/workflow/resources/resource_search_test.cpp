// Which file is found for a name, a locale and a mode.
#include "unit/workflow/resources/resource_fixture.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

class ResourceFiles : public ResourceFixture {
protected:
    ResourceFiles() {
        Select("de_DE");
        for (const char* name : {"everywhere.txt", "de_DE/everywhere.txt", "en_US/everywhere.txt", "root.txt",
                                 "en_US/english.txt", "de_DE/german.txt"})
            files.Write(name, name);
    }
};

TEST_F(ResourceFiles, FollowsTheTableOfModes) {
    const struct {
        const char* name;
        const char* locale;
        std::uint32_t mode;
        const char* found;
    } cases[] = {
        {"everywhere", "de_DE", 0, "everywhere.txt"},
        {"german", "de_DE", 0, ""},
        {"everywhere", "de_DE", 1, "de_DE\\everywhere.txt"},
        {"root", "de_DE", 1, ""},
        {"english", "de_DE", 1, ""},
        {"everywhere", "de_DE", 2, "de_DE\\everywhere.txt"},
        {"root", "de_DE", 2, "root.txt"},
        {"english", "de_DE", 2, ""},
        {"everywhere", "de_DE", 3, "de_DE\\everywhere.txt"},
        {"english", "de_DE", 3, "en_US\\english.txt"},
        {"english", "fr_FR", 3, "en_US\\english.txt"},
        {"english", "en_US", 3, "en_US\\english.txt"},
        {"root", "de_DE", 3, ""},
        {"root", "en_US", 3, ""},
        {"root", "", 1, "\\root.txt"}, // the system takes two separators for one
        {"root", "", 3, "\\root.txt"},
        {"everywhere", "de_DE", 4, ""},
        {"everywhere", "de_DE", 0xFFFFFFFF, ""},
    };
    for (const auto& entry : cases)
        EXPECT_EQ(Found(entry.name, entry.locale, entry.mode), entry.found)
            << entry.name << " for " << entry.locale << " in mode " << entry.mode;
}

TEST_F(ResourceFiles, DefaultLocaleMeansTheLanguage) {
    EXPECT_EQ(Found("german", "default_locale", 1), "de_DE\\german.txt");
    PVNResourceManager::Get().SetLanguage("en_US");
    EXPECT_EQ(Found("german", "default_locale", 1), "");
    EXPECT_EQ(Found("english", "default_locale", 1), "en_US\\english.txt");
}

TEST_F(ResourceFiles, DefaultLocaleIsComparedExactly) {
    EXPECT_EQ(Found("german", "Default_locale", 1), "");
    EXPECT_EQ(Found("german", "default_locale ", 1), "");
}

TEST_F(ResourceFiles, KnowsNoRegionlessLocale) {
    files.Write("he/only.txt", "");
    EXPECT_EQ(Found("only", "he_IL", 3), "");
    EXPECT_EQ(Found("only", "he_IL", 2), "");
}

TEST_F(ResourceFiles, AFolderIsNoFile) {
    std::filesystem::create_directories(files.PathOf("de_DE/folder.txt"));
    files.Write("folder.txt", "");
    EXPECT_EQ(Found("folder", "de_DE", 2), "folder.txt");
}

TEST_F(ResourceFiles, NamesMayHoldAnyLetter) {
    const std::string name = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xE6\x97\xA5"; // Hebrew, Japanese
    files.Write(name + ".txt", "");
    EXPECT_EQ(Found(name, "de_DE", 2), name + ".txt");
}

TEST_F(ResourceFiles, APathBeyondTheBufferIsCutAndNotFound) {
    const std::size_t rootLength = files.Folder().u16string().size() + std::size_t{12}; // "\PVResources"
    const std::size_t longest = 259 - rootLength - 1 - 4;                               // "\" and ".txt"
    const std::string fits(longest, 'n');
    files.Write(fits + ".txt", "");
    files.Write(fits + "n.txt", "");
    EXPECT_EQ(Found(fits, "de_DE", 0), fits + ".txt");
    EXPECT_EQ(Found(fits + "n", "de_DE", 0), "");
}

TEST_F(ResourceFiles, TheBufferIsAlwaysOfFullSizeAndTerminated) {
    const PathUnits path = PVNResourceManager::Get().FindResourceFile("root", "txt", "de_DE", 0);
    ASSERT_TRUE(path);
    EXPECT_EQ(std::count(path.get(), path.get() + platform::kPathUnits, u'\0'),
              static_cast<std::ptrdiff_t>(platform::kPathUnits - std::u16string(path.get()).size()));
}

TEST_F(ResourceFiles, ARootThatFillsTheBufferFindsNothing) {
    SetResourceRootBelow(std::string(300, 'r'));
    EXPECT_EQ(Found("root", "de_DE", 0), "");
    SetResourceRootBelow(files.Utf8());
    EXPECT_EQ(Found("root", "de_DE", 0), "root.txt");
}

class CountingHandler final : public PVNResourceHandler {
public:
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override {
        last = name + " " + locale + " " + std::to_string(mode);
        return this;
    }
    void Release(const std::string& name) override { last = "released " + name; }
    std::string Description() const override { return "counts"; }

    std::string last;
};

class ResourceManager : public ResourceFixture {
protected:
    PVNResourceManager& manager = PVNResourceManager::Get();
    ~ResourceManager() override { PVNResourceManager::Destroy(); }
};

TEST_F(ResourceManager, PassesCallsToTheHandlerOfTheType) {
    CountingHandler handler;
    manager.RegisterHandler("kind", &handler);
    EXPECT_EQ(manager.Load("kind", "name", "default_locale", 7), &handler);
    EXPECT_EQ(handler.last, "name default_locale 7");
    manager.Release("kind", "name");
    EXPECT_EQ(handler.last, "released name");
}

TEST_F(ResourceManager, AnUnknownTypeReturnsNullAndReleasesNothing) {
    CountingHandler handler;
    manager.RegisterHandler("kind", &handler);
    EXPECT_EQ(manager.Load("Kind", "name", "en_US", 0), nullptr);
    manager.Release("Kind", "name");
    EXPECT_EQ(handler.last, "");
    EXPECT_EQ(manager.RemoveHandler("Kind"), nullptr);
}

TEST_F(ResourceManager, RemovingAHandlerForgetsAndReturnsIt) {
    CountingHandler handler;
    manager.RegisterHandler("kind", &handler);
    EXPECT_EQ(manager.RemoveHandler("kind"), &handler);
    EXPECT_EQ(manager.RemoveHandler("kind"), nullptr);
    EXPECT_EQ(manager.Load("kind", "name", "en_US", 0), nullptr);
}

TEST_F(ResourceManager, TheBaseHandlerLoadsAndReleasesNothing) {
    class Silent final : public PVNResourceHandler {
        std::string Description() const override { return "nothing"; }
    } silent;
    EXPECT_EQ(silent.Load("name", "en_US", 0), nullptr);
    silent.Release("name");
}

} // namespace brixen::pvn::pvn_workflow
