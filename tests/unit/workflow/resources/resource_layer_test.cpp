// The layer as a workflow uses it: views, dictionaries, bitmaps, with their files and without.
#include "unit/workflow/resources/resource_fixture.h"

#include "dictionaries/translation.h"
#include "support/failing_allocator.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/headless/headless.h"
#include "toolkit/toolkit_state.h"
#include "workflow/resources/bitmap_handler.h"
#include "workflow/resources/dictionary_handler.h"
#include "workflow/resources/view_handler.h"

#include <stdexcept>

namespace brixen::pvn::pvn_workflow {

namespace {

// Little-endian UTF-16 with its mark.
std::string Dictionary(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) bytes += {c, '\0'};
    return bytes;
}

std::string MessageOf(void (*load)(const std::string&), const std::string& name) {
    try {
        load(name);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

void LoadView(const std::string& name) { LoadViewDescription(name); }

} // namespace

using ResourceLayer = ResourceFixture;

// --- Views ---

TEST_F(ResourceLayer, AViewComesFromTheLanguageFolderBeforeTheRoot) {
    files.Write("welcome.exv", "root");
    files.Write("de_DE/welcome.exv", "german");
    Select("de_DE");
    EXPECT_EQ(LoadViewDescription("welcome"), "german");
    files.Remove("de_DE/welcome.exv");
    EXPECT_EQ(LoadViewDescription("welcome"), "root");
}

TEST_F(ResourceLayer, AViewIsNeverTakenFromEnUs) {
    files.Write("en_US/welcome.exv", "english");
    Select("de_DE");
    EXPECT_EQ(MessageOf(LoadView, "welcome"), "missing resource");
}

TEST_F(ResourceLayer, AMissingViewIsLoggedAndThrown) {
    Select("de_DE");
    EXPECT_EQ(MessageOf(LoadView, "absent"), "missing resource");
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Exvw, Name: absent)\n");
}

TEST_F(ResourceLayer, AnEmptyViewIsAText) {
    files.Write("empty.exv", "");
    Select("de_DE");
    EXPECT_EQ(LoadViewDescription("empty"), "");
}

TEST_F(ResourceLayer, AViewOfManyBlocksArrivesWhole) {
    for (const std::size_t size : {4095u, 4096u, 4097u, 100000u}) {
        files.Write("long.exv", std::string(size, 'v'));
        Select("de_DE");
        EXPECT_EQ(LoadViewDescription("long"), std::string(size, 'v'));
    }
}

TEST_F(ResourceLayer, AViewEndsAtItsFirstNul) {
    files.Write("cut.exv", std::string("before\0after", 12));
    Select("de_DE");
    EXPECT_EQ(LoadViewDescription("cut"), "before");
}

TEST_F(ResourceLayer, ThePathOfAViewIsThatOfTheFileThatIsLoaded) {
    files.Write("welcome.exv", "root");
    files.Write("de_DE/welcome.exv", "german");
    Select("de_DE");
    EXPECT_TRUE(FindViewDescription("welcome").ends_with("PVResources\\de_DE\\welcome.exv"));
    files.Remove("de_DE/welcome.exv");
    EXPECT_TRUE(FindViewDescription("welcome").ends_with("PVResources\\welcome.exv"));
    EXPECT_EQ(FindViewDescription("absent"), "");
}

TEST_F(ResourceLayer, ViewHandlerKeepsOneTextAndDropsItWhenTheNextIsMissing) {
    files.Write("first.exv", "first");
    Select("de_DE");
    PVNViewHandler handler;
    EXPECT_STREQ(static_cast<char*>(handler.Load("first", "default_locale", 99)), "first");
    EXPECT_EQ(handler.Load("second", "default_locale", 0), nullptr);
}

// --- Dictionaries ---

TEST_F(ResourceLayer, ViewFromTheRootAndDictionaryFromTheLanguageFolder) {
    files.Write("welcome.exv", "root");
    files.Write("de_DE/guide.zdct", Dictionary("\"$$$/resource/one=eins\"\r\n"));
    files.Write("en_US/guide.zdct", Dictionary("\"$$$/resource/one=one\"\r\n"));
    Select("de_DE");
    EXPECT_EQ(LocaleOfWords(), "");
    EXPECT_EQ(LoadViewDescription("welcome"), "root");
    LoadWorkFlowDictionary("Welcome");
    EXPECT_EQ(LocaleOfWords(), "de_DE");
    EXPECT_EQ(zeve::ZeveTranslate("$$$/resource/one=default"), "eins");
}

TEST_F(ResourceLayer, ADictionaryFallsBackToEnUs) {
    files.Write("en_US/guide.zdct", Dictionary("\"$$$/resource/two=two\"\r\n"));
    Select("fr_FR");
    LoadWorkFlowDictionary("Welcome");
    EXPECT_EQ(zeve::ZeveTranslate("$$$/resource/two=default"), "two");
    EXPECT_EQ(LocaleOfWords(), "en_US");
    ShutDownResources();
    EXPECT_EQ(LocaleOfWords(), "");
}

TEST_F(ResourceLayer, ADictionaryIsNeverTakenFromTheRoot) {
    files.Write("guide.zdct", Dictionary("\"$$$/resource/three=three\"\r\n"));
    Select("en_US");
    EXPECT_EQ(MessageOf(LoadWorkFlowDictionary, "Welcome"), "missing resource");
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Zdct, Name: Welcome)\n");
}

TEST_F(ResourceLayer, AnUnknownWorkflowHasNoDictionary) {
    files.Write("en_US/Somewhere.zdct", Dictionary("\"$$$/resource/four=four\"\r\n"));
    Select("en_US");
    EXPECT_EQ(MessageOf(LoadWorkFlowDictionary, "Somewhere"), "missing resource");
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Zdct, Name: Somewhere)\n");
}

TEST_F(ResourceLayer, WorkflowsThatShareADictionaryReadItOnceARun) {
    files.Write("en_US/guide.zdct", Dictionary("\"$$$/resource/five=five\"\r\n"));
    Select("en_US");
    LoadWorkFlowDictionary("Welcome");
    ASSERT_TRUE(files.Remove("en_US/guide.zdct"));
    EXPECT_NO_THROW(LoadWorkFlowDictionary("Privacy"));
    EXPECT_NO_THROW(LoadWorkFlowDictionary("Welcome"));

    ShutDownResources();
    Select("en_US");
    EXPECT_EQ(MessageOf(LoadWorkFlowDictionary, "Welcome"), "missing resource");
}

TEST_F(ResourceLayer, EachWorkflowHasItsDictionary) {
    Select("en_US");
    for (const char* name : {"Welcome", "Privacy"}) {
        files.Write("en_US/guide.zdct", Dictionary("\"$$$/resource/a=a\"\r\n"));
        PVNDictionaryHandler handler;
        EXPECT_NE(handler.Load(name, "en_US", 0), nullptr) << name;
        files.Remove("en_US/guide.zdct");
    }
    for (const char* name : {"Registration", "Connection", "Feedback"}) {
        files.Write("en_US/service.zdct", Dictionary("\"$$$/resource/b=b\"\r\n"));
        PVNDictionaryHandler handler;
        EXPECT_NE(handler.Load(name, "en_US", 0), nullptr) << name;
        files.Remove("en_US/service.zdct");
    }
}

// --- Bitmaps ---

class ResourceBitmaps : public ResourceFixture {
protected:
    platform::ResourceRecorder& recorder = platform::TheResourceRecorder();
};

TEST_F(ResourceBitmaps, AMissingBitmapIsLoggedAndNull) {
    Select("de_DE");
    EXPECT_EQ(LoadBitmapResource("absent", 3), nullptr);
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Bitmap, Name: absent)\n");
    EXPECT_EQ(recorder.decoderStarts, 0) << "nothing to decode";
}

TEST_F(ResourceBitmaps, AMissingBitmapIsLookedForAgain) {
    Select("de_DE");
    EXPECT_EQ(LoadBitmapResource("late", 3), nullptr);
    files.Copy("late.png", Picture("rgb.png"));
    EXPECT_NE(LoadBitmapResource("late", 3), nullptr);
}

TEST_F(ResourceBitmaps, TheLanguageFolderHidesTheRoot) {
    files.Copy("picture.png", Picture("rgb.png"));
    files.Write("de_DE/picture.png", "no picture at all");
    Select("de_DE");
    EXPECT_EQ(LoadBitmapResource("picture", 3), nullptr) << "the broken one in the folder is the one found";
    files.Remove("de_DE/picture.png");
    EXPECT_NE(LoadBitmapResource("picture", 3), nullptr);
}

TEST_F(ResourceBitmaps, NeitherModeNorLocaleChangesTheSearch) {
    files.Copy("root.png", Picture("rgb.png"));
    files.Copy("en_US/english.png", Picture("rgb.png"));
    Select("de_DE");
    PVNBitmapHandler handler;
    for (const std::uint32_t mode : {0u, 1u, 2u, 3u, 9u}) {
        EXPECT_NE(handler.Load("root", "en_US", mode), nullptr) << mode;
        handler.Release("root");
        EXPECT_EQ(handler.Load("english", "en_US", mode), nullptr) << mode;
    }
}

TEST_F(ResourceBitmaps, ABitmapIsDecodedOnceByName) {
    files.Copy("one.png", Picture("rgb.png"));
    files.Copy("two.png", Picture("rgba.png"));
    Select("de_DE");
    const zeve::NativeBitmap one = LoadBitmapResource("one", 3);
    const zeve::NativeBitmap two = LoadBitmapResource("two", 3);
    files.Remove("one.png");
    EXPECT_EQ(LoadBitmapResource("one", 0), one);
    EXPECT_NE(one, two);
    EXPECT_EQ(recorder.bitmapsMade, 2u);
    EXPECT_EQ(recorder.decoderStarts, 1);
}

TEST_F(ResourceBitmaps, ReleaseDeletesTheHandleAndForgetsTheName) {
    files.Copy("one.png", Picture("rgb.png"));
    Select("de_DE");
    LoadBitmapResource("one", 3);
    PVNResourceManager::Get().Release("Resource_Type_Bitmap", "unknown");
    EXPECT_EQ(recorder.liveBitmaps.size(), 1u);
    PVNResourceManager::Get().Release("Resource_Type_Bitmap", "one");
    EXPECT_TRUE(recorder.liveBitmaps.empty());
    LoadBitmapResource("one", 3);
    EXPECT_EQ(recorder.bitmapsMade, 2u);
}

TEST_F(ResourceBitmaps, ShutDownDeletesEveryHandleAndStopsTheDecoder) {
    files.Copy("one.png", Picture("rgb.png"));
    files.Copy("two.png", Picture("rgba.png"));
    Select("de_DE");
    LoadBitmapResource("one", 3);
    LoadBitmapResource("two", 3);
    EXPECT_EQ(recorder.liveBitmaps.size(), 2u);
    EXPECT_TRUE(recorder.decoderRuns);
    ShutDownResources();
    EXPECT_TRUE(recorder.liveBitmaps.empty());
    EXPECT_FALSE(recorder.decoderRuns);
}

TEST_F(ResourceBitmaps, SeveralHandlersShareOneDecoder) {
    files.Copy("one.png", Picture("rgb.png"));
    Select("de_DE");
    auto first = std::make_unique<PVNBitmapHandler>();
    PVNBitmapHandler idle;
    {
        PVNBitmapHandler second;
        first->Load("one", "de_DE", 0);
        second.Load("one", "de_DE", 0);
        EXPECT_EQ(recorder.decoderStarts, 1);
        first.reset();
        EXPECT_TRUE(recorder.decoderRuns) << "the second still needs it";
    }
    EXPECT_FALSE(recorder.decoderRuns);
    EXPECT_EQ(TheResourceState().decoderUsers, 0);
}

TEST_F(ResourceBitmaps, ARefusedDecoderIsTriedAgain) {
    files.Copy("one.png", Picture("rgb.png"));
    Select("de_DE");
    recorder.refuseDecoder = true;
    EXPECT_EQ(LoadBitmapResource("one", 3), nullptr);
    recorder.refuseDecoder = false;
    EXPECT_NE(LoadBitmapResource("one", 3), nullptr);
}

TEST_F(ResourceBitmaps, ARefusedBitmapIsTriedAgain) {
    files.Copy("one.png", Picture("rgb.png"));
    Select("de_DE");
    recorder.refuseBitmap = 1;
    EXPECT_EQ(LoadBitmapResource("one", 3), nullptr);
    EXPECT_NE(LoadBitmapResource("one", 3), nullptr);
}

// --- Life of the layer ---

TEST_F(ResourceLayer, TheFirstLanguageHoldsUntilShutDown) {
    files.Write("de_DE/view.exv", "german");
    files.Write("ja_JP/view.exv", "japanese");
    Select("de_DE");
    Select("ja_JP");
    EXPECT_EQ(LoadViewDescription("view"), "german");
    ShutDownResources();
    Select("ja_JP");
    EXPECT_EQ(LoadViewDescription("view"), "japanese");
}

TEST_F(ResourceLayer, SelectLanguageInitializesTheToolkitOnceInTheProcess) {
    const auto initializations = [] { return zeve::headless::CallsOf("RegisterCommonControls").size(); };
    zeve::headless::Reset();
    zeve::ResetToolkit();
    SelectLanguage("de_DE");
    EXPECT_EQ(initializations(), 1u);
    SelectLanguage("de_DE");
    ShutDownResources();
    SelectLanguage("de_DE");
    EXPECT_EQ(initializations(), 1u);
    zeve::headless::Reset();
}

TEST_F(ResourceLayer, SelectLanguageUsesTheFolderBesideTheLibrary) {
    SelectLanguage("en_US");
    const std::u16string library = platform::LibraryFolder();
    ASSERT_FALSE(library.empty());
    files.Write("elsewhere.txt", "");
    EXPECT_EQ(Found("elsewhere", "en_US", 0), "");
    SetResourceRootBelow(files.Utf8());
    EXPECT_EQ(Found("elsewhere", "en_US", 0), "elsewhere.txt");
    SetResourceRootToLibrary();
    EXPECT_EQ(Found("elsewhere", "en_US", 0), "");
}

TEST_F(ResourceLayer, ShutDownWithoutASetUpDoesNothing) {
    ShutDownResources();
    ShutDownResources();
    EXPECT_EQ(TheResourceState().manager, nullptr);
}

TEST_F(ResourceLayer, ShutDownDestroysTheManager) {
    Select("de_DE");
    EXPECT_NE(TheResourceState().manager, nullptr);
    ShutDownResources();
    EXPECT_EQ(TheResourceState().manager, nullptr);
    EXPECT_EQ(LoadBitmapResource("any", 3), nullptr) << "a manager made anew has no handlers";
    PVNResourceManager::Destroy();
}

class PartingHandler final : public PVNResourceHandler {
public:
    PartingHandler(std::string typeName, std::string& notes) : type(std::move(typeName)), gone(notes) {}
    ~PartingHandler() override {
        const ResourceState& state = TheResourceState();
        const bool isForgotten = state.manager && !state.manager->HandlerOf(type);
        // The last one is destroyed after all others were forgotten.
        const bool isNextKnown = state.manager && state.manager->HandlerOf(kLastType);
        const bool isInOrder = isForgotten && state.isSetUp && (type == kLastType || isNextKnown);
        gone += type + (isInOrder ? " " : " in a wrong order ");
    }
    std::string Description() const override { return "notes its end"; }

private:
    static constexpr const char* kLastType = "Resource_Type_Privstat";

    std::string type;
    std::string& gone;
};

TEST_F(ResourceLayer, ShutDownDestroysTheHandlersInTheirOrderBeforeTheManager) {
    Select("de_DE");
    std::string gone;
    for (auto& [type, handler] : TheResourceState().handlers) {
        handler = std::make_unique<PartingHandler>(type, gone);
        PVNResourceManager::Get().RegisterHandler(type, handler.get());
    }
    ShutDownResources();
    EXPECT_EQ(gone, "Resource_Type_Exvw Resource_Type_Zdct Resource_Type_Bitmap Resource_Type_Privstat ");
}

TEST_F(ResourceLayer, RegistersEachHandlerUnderItsType) {
    Select("de_DE");
    const struct {
        const char* type;
        const char* description;
    } kinds[] = {
        {"Resource_Type_Exvw", "Zeve Express View Resource"},
        {"Resource_Type_Zdct", "Zstring Dictionary Resource"},
        {"Resource_Type_Bitmap", "Bitmap Resource"},
        {"Resource_Type_Privstat", "Privacy Statement Resource"},
    };
    for (const auto& kind : kinds) {
        const PVNResourceHandler* handler = PVNResourceManager::Get().HandlerOf(kind.type);
        ASSERT_NE(handler, nullptr) << kind.type;
        EXPECT_EQ(handler->Description(), kind.description);
    }
}

class AskedHandler final : public PVNResourceHandler {
public:
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override {
        asked = name + " " + locale + " " + std::to_string(mode);
        return asked.data();
    }
    std::string Description() const override { return "notes what it is asked"; }

    std::string asked;
};

TEST_F(ResourceLayer, AsksTheHandlersForTheLanguageOfTheRun) {
    PVNResourceManager& manager = PVNResourceManager::Get();
    AskedHandler views, dictionaries, bitmaps;
    manager.RegisterHandler("Resource_Type_Exvw", &views);
    manager.RegisterHandler("Resource_Type_Zdct", &dictionaries);
    manager.RegisterHandler("Resource_Type_Bitmap", &bitmaps);
    EXPECT_EQ(LoadViewDescription("a"), "a default_locale 0");
    LoadWorkFlowDictionary("b");
    EXPECT_EQ(dictionaries.asked, "b default_locale 1");
    LoadBitmapResource("c", 77);
    EXPECT_EQ(bitmaps.asked, "c default_locale 77");
    PVNResourceManager::Destroy();
}

TEST_F(ResourceLayer, RunningOutOfMemoryAtAnyPointLeaksNothing) {
    files.Write("welcome.exv", "root");
    files.Copy("one.png", Picture("rgb.png"));
    const std::string folder = files.Utf8();
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([&folder] {
        try {
            SelectLanguage("de_DE");
            SetResourceRootBelow(folder);
            LoadViewDescription("welcome");
            LoadBitmapResource("one", 3);
        } catch (const std::exception&) { // no memory, or what was missing for that reason
        }
        ShutDownResources();
        PVNResourceManager::Destroy();
    });
    EXPECT_GT(failures, 10u);
    EXPECT_TRUE(platform::TheResourceRecorder().liveBitmaps.empty());
    EXPECT_EQ(TheResourceState().decoderUsers, 0);
    Select("de_DE");
    EXPECT_EQ(LoadViewDescription("welcome"), "root") << "the next set-up works";
}

} // namespace brixen::pvn::pvn_workflow
