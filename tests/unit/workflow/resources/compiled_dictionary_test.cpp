// A workflow's dictionary may be compiled, as it is shipped, or text.
#include "unit/workflow/resources/resource_fixture.h"

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/translation.h"

#include <fstream>
#include <iterator>

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr char kKey[] = "$$$/pvn/dlg/common/button/quit=default";

class CompiledDictionary : public ResourceFixture {
protected:
    CompiledDictionary() { kestrel_private::ResetState(); }
    ~CompiledDictionary() override { kestrel_private::ResetState(); }

    static std::string Shipped() {
        const std::filesystem::path library(platform::LibraryFolder());
        std::ifstream file(library / "PVResources" / "de_DE" / "guide.zdct", std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    }
    // Little-endian UTF-16 with its mark.
    static std::string Text(const std::string& ascii) {
        std::string bytes = "\xFF\xFE";
        for (const char c : ascii) bytes += {c, '\0'};
        return bytes;
    }
};

TEST_F(CompiledDictionary, IsLoadedFromTheLanguageFolder) {
    files.Write("de_DE/guide.zdct", Shipped());
    Select("de_DE");
    LoadWorkFlowDictionary("Welcome");
    EXPECT_EQ(zeve::ZeveTranslate(kKey), "&Beenden");
}

TEST_F(CompiledDictionary, MayBeReplacedByText) {
    files.Write("de_DE/guide.zdct", Text("\"$$$/pvn/dlg/common/button/quit=Ende\"\n"));
    Select("de_DE");
    LoadWorkFlowDictionary("Welcome");
    EXPECT_EQ(zeve::ZeveTranslate(kKey), "Ende");
}

TEST_F(CompiledDictionary, OverlaysTheTextOfAnotherWorkflow) {
    files.Write("de_DE/service.zdct",
                Text("\"$$$/pvn/dlg/common/button/quit=Ende\"\n\"$$$/resource/own=mine\"\n"));
    files.Write("de_DE/guide.zdct", Shipped());
    Select("de_DE");
    LoadWorkFlowDictionary("Registration");
    EXPECT_EQ(zeve::ZeveTranslate(kKey), "Ende");
    LoadWorkFlowDictionary("Welcome");
    EXPECT_EQ(zeve::ZeveTranslate(kKey), "&Beenden");
    EXPECT_EQ(zeve::ZeveTranslate("$$$/resource/own=default"), "mine");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
