// Pages of the product's own, which the browser shows: the language's, else the English one.
#include "workflow/controls/open_in_browser.h"

#include "unit/workflow/resources/resource_fixture.h"
#include "workflow/platform/headless/pane_recorder.h"

namespace brixen::pvn::pvn_workflow {
namespace {

class LocalPage : public ResourceFixture {
protected:
    LocalPage() { platform::ThePaneRecorder().Reset(); }
    ~LocalPage() override { platform::ThePaneRecorder().Reset(); }

    // The page that the browser is given, relative to PVResources; empty when none is started.
    std::string Opened(const std::string& name) {
        platform::ThePaneRecorder().started.clear();
        OpenLocalPage(name);
        if (platform::ThePaneRecorder().started.empty()) return "";
        const std::u16string& quoted = platform::ThePaneRecorder().started.back().arguments;
        const std::string path = std::filesystem::path(quoted.substr(1, quoted.size() - 2)).string();
        return path.substr(path.find("PVResources") + 12);
    }
};

TEST_F(LocalPage, IsThatOfTheLanguage) {
    files.Write("de_DE/page.html", "");
    files.Write("en_US/page.html", "");
    Select("de_DE");
    EXPECT_EQ(Opened("page"), "de_DE\\page.html");
}

TEST_F(LocalPage, IsTheEnglishOneWhereTheLanguageHasNone) {
    files.Write("en_US/page.html", "");
    files.Write("page.html", "");
    Select("de_DE");
    EXPECT_EQ(Opened("page"), "en_US\\page.html");
}

TEST_F(LocalPage, IsNotTakenFromTheRoot) {
    files.Write("page.html", "");
    Select("de_DE");
    EXPECT_EQ(Opened("page"), "");
    Select("en_US");
    EXPECT_EQ(Opened("page"), "");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
