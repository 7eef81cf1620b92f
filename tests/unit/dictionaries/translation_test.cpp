#include "dictionaries/translation.h"

#include "dictionaries/process_dictionary.h"
#include "dictionaries/zstring/encoding.h"

#include "support/failing_allocator.h"
#include "unit/dictionaries/dictionary_support.h"

#include <new>
#include <stdexcept>
#include <string>

using namespace brixen::zeve;
using namespace pavane_test;

namespace {

class Translation : public DictionaryTest {
protected:
    static void Populate(std::u16string_view text) {
        const std::string bytes = LittleEndian(text);
        PopulateDictionary(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    }
};

// Reads the slot before any test empties it.
class LibraryStart : public testing::Environment {
public:
    void SetUp() override { made = kestrel_private::State().processDictionary != nullptr; }
    bool HadADictionary() const { return made; }

private:
    bool made = false;
};
const auto* const gLibraryStart =
    static_cast<LibraryStart*>(testing::AddGlobalTestEnvironment(new LibraryStart));

TEST_F(Translation, HasItsDictionaryFromTheStart) { EXPECT_TRUE(gLibraryStart->HadADictionary()); }

TEST_F(Translation, IsEmptyForNoKey) {
    EXPECT_EQ(ZeveTranslate(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(ZeveTranslate(""), "");
    EXPECT_EQ(ZeveTranslate(nullptr, {"x"}), "");
    EXPECT_EQ(ZeveTranslate(nullptr, 0, "x"), "");
    EXPECT_EQ(ZeveTranslate(std::string_view(), 0, "x"), "");
}

TEST_F(Translation, TakesAndReturnsUtf8) {
    Populate(u"$$$/a=Gr\u00FC\u00DFe \U0001F600\n");
    EXPECT_EQ(ZeveTranslate("$$$/a=x"), "Gr\xC3\xBC\xC3\x9F"
                                        "e \xF0\x9F\x98\x80");
    EXPECT_EQ(ZeveTranslate("$$$/b=Gr\xC3\xBC\xC3\x9F"
                            "e"),
              "Gr\xC3\xBC\xC3\x9F"
              "e");
    EXPECT_EQ(ZeveTranslate(std::string("$$$/b=x")), "x");
}

TEST_F(Translation, MakesTheDictionaryWhenItIsMissing) {
    kestrel_private::State().processDictionary = nullptr;
    EXPECT_EQ(ZeveTranslate("$$$/a=x"), "x");
    EXPECT_NE(kestrel_private::State().processDictionary, nullptr);
}

TEST_F(Translation, PutsTextsIntoPlaceholdersInOrder) {
    Populate(u"$$$/a=^0 von ^1, ^2\n");
    EXPECT_EQ(ZeveTranslate("$$$/a", {"1", "\xE2\x82\xAC"}), "1 von \xE2\x82\xAC, ^2");
    EXPECT_EQ(ZeveTranslate("$$$/a", {"^1", "x"}), "x von x, ^2")
        << "a later index scans earlier replacements";
    EXPECT_EQ(ZeveTranslate("$$$/a", std::vector<std::string>()), "^0 von ^1, ^2");
    EXPECT_EQ(ZeveTranslate("$$$/a", 1, "x"), "^0 von x, ^2");
    EXPECT_EQ(ZeveTranslate("$$$/none=^^^^0", 0, "x"), "^x");
}

TEST_F(Translation, ReplacesLoneSurrogates) {
    Populate(std::u16string(u"$$$/a=x") + char16_t{0xD800} + u"y\n");
    EXPECT_EQ(ZeveTranslate("$$$/a"), "x\xEF\xBF\xBDy");
}

TEST_F(Translation, ThrowsACodeForADefaultThatIsNotUtf8) {
    EXPECT_THROW((void)ZeveTranslate("$$$/a=\x80"), kestrel_private::ConversionCode);
    EXPECT_THROW((void)ZeveTranslate("$$$/a=^0", 0, "\x80"), kestrel_private::ConversionCode);
}

TEST_F(Translation, AddsOneKeyAndValue) {
    AddKeyValue("$$$/a=x=\xE2\x82\xAC");
    EXPECT_EQ(ZeveTranslate("$$$/a=default"), "x=\xE2\x82\xAC");
    AddKeyValue("$$$/a=new");
    EXPECT_EQ(ZeveTranslate("$$$/a=default"), "new");
    AddKeyValue("$$$/b");
    EXPECT_EQ(ZeveTranslate("$$$/b=default"), "");
    AddKeyValue("");
    AddKeyValue("$/c=x");
    EXPECT_EQ(kestrel_private::ProcessDictionary().Entries().TotalIds(), 2u);
}

TEST_F(Translation, TurnsACodeIntoALogicErrorAndKeepsTheOldValue) {
    AddKeyValue("$$$/a=x");
    try {
        AddKeyValue("$$$/a=\x80");
        FAIL();
    } catch (const std::logic_error& failure) {
        EXPECT_STREQ(failure.what(), "Exception thrown at CardexLib Zeve dictionary population.");
    }
    EXPECT_EQ(ZeveTranslate("$$$/a"), "x");
}

TEST_F(Translation, SwallowsStandardExceptionsInPopulation) {
    const std::string bytes = LittleEndian(u"$$$/a=one\n$$$/b=two\n");
    const std::size_t failures = ForEveryFailingAllocation([&] {
        kestrel_private::ResetState();
        EXPECT_NO_THROW(PopulateDictionary(bytes.data(), static_cast<std::int64_t>(bytes.size())));
        EXPECT_NO_THROW(AddKeyValue("$$$/c=a value long enough for the heap"));
        kestrel_private::ResetState();
    });
    EXPECT_GT(failures, 10u);
}

TEST_F(Translation, IgnoresAPopulationFromNothing) {
    PopulateDictionary(nullptr, 0);
    EXPECT_FALSE(kestrel_private::ProcessDictionary().IsGood());
    EXPECT_EQ(ZeveTranslate("$$$/a=x"), "x");
}

TEST_F(Translation, LeaksNothingWhenMemoryRunsOut) {
    Populate(u"$$$/a=^0 of ^1, a text that is too long for any small string\n");
    ForEveryFailingAllocation([] {
        try {
            (void)ZeveTranslate("$$$/a", {"1", "2"});
            (void)ZeveTranslate("$$$/none=another text that is too long for any small string");
        } catch (const std::bad_alloc&) {
            // The caller checks that nothing is leaked.
        }
    });
}

TEST_F(Translation, ShowsPlainTextsUnchanged) {
    Populate(u"$$$/a=x\nYes=Ja\n");
    EXPECT_EQ(ShownText("OK"), "OK");
    EXPECT_EQ(ShownText("$5"), "$5");
    EXPECT_EQ(ShownText("Yes"), "Ja");
    EXPECT_EQ(ShownText("$$$/a"), "x");
    EXPECT_EQ(ShownText("$$$/none"), "");
    EXPECT_EQ(ShownText("$$$/none=default"), "default");
    EXPECT_EQ(ShownText("a=b"), "b");
    EXPECT_EQ(ShownText("$a=b"), "");
    EXPECT_EQ(ShownText(""), "");
}

} // namespace
