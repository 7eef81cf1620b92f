#include "toolkit/boxes/box_makers.h"
#include "toolkit/boxes/eve_button.h"
#include "toolkit/boxes/eve_button_popup.h"
#include "toolkit/boxes/eve_check_box.h"
#include "toolkit/boxes/eve_cluster.h"
#include "toolkit/boxes/eve_dialog.h"
#include "toolkit/boxes/eve_edit_number.h"
#include "toolkit/boxes/eve_edit_text.h"
#include "toolkit/boxes/eve_empty.h"
#include "toolkit/boxes/eve_hyperlink.h"
#include "toolkit/boxes/eve_icon.h"
#include "toolkit/boxes/eve_list_box.h"
#include "toolkit/boxes/eve_picture.h"
#include "toolkit/boxes/eve_popup.h"
#include "toolkit/boxes/eve_progress_bar.h"
#include "toolkit/boxes/eve_radio_button.h"
#include "toolkit/boxes/eve_radio_group.h"
#include "toolkit/boxes/eve_scroller.h"
#include "toolkit/boxes/eve_separator.h"
#include "toolkit/boxes/eve_slider.h"
#include "toolkit/boxes/eve_static_text.h"
#include "toolkit/boxes/eve_static_text_enum.h"
#include "toolkit/boxes/eve_tab_group.h"
#include "toolkit/boxes/eve_tree_ctrl.h"
#include "toolkit/key_hash.h"
#include "toolkit/toolkit_state.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <typeindex>
#include <vector>

namespace brixen::zeve {
namespace {

class KeywordTableTest : public testing::Test {
protected:
    KeywordTableTest() { ResetToolkit(); }
    ~KeywordTableTest() override { ResetToolkit(); }
};

template <class Box>
std::unique_ptr<CEveBox> Maker() {
    return std::make_unique<Box>();
}

std::type_index ClassOf(std::string_view keyword) {
    const std::unique_ptr<CEveBox> box = MakeBox(keyword);
    const CEveBox& made = *box;
    return typeid(made);
}

TEST_F(KeywordTableTest, EveryKeywordMakesItsOwnClass) {
    const std::map<std::string, std::type_index> classes = {
        {"dialog", typeid(CEveDialog)},
        {"button", typeid(CEveButton)},
        {"hyperlink", typeid(CEveHyperlink)},
        {"radio", typeid(CEveRadioButton)},
        {"check_box", typeid(CEveCheckBox)},
        {"radio_group", typeid(CEveRadioGroup)},
        {"tab_group", typeid(CEveTabGroup)},
        {"edit_text", typeid(CEveEditText)},
        {"edit_number", typeid(CEveEditNumber)},
        {"cluster", typeid(CEveCluster)},
        {"slider", typeid(CEveSlider)},
        {"separator", typeid(CEveSeparator)},
        {"picture", typeid(CEvePicture)},
        {"icon", typeid(CEveIcon)},
        {"static_text", typeid(CEveStaticText)},
        {"static_text_enum", typeid(CEveStaticTextEnum)},
        {"list_box", typeid(CEveListBox)},
        {"scroller", typeid(CEveScroller)},
        {"progress_bar", typeid(CEveProgressBar)},
        {"table", typeid(CEveTreeCtrl)},
        {"popup", typeid(CEvePopup)},
        {"button_popup", typeid(CEveButtonPopup)},
    };
    ASSERT_EQ(classes.size(), 22u);
    FillKeywordTable();
    for (const auto& [keyword, boxClass] : classes) EXPECT_EQ(ClassOf(keyword), boxClass) << keyword;
}

TEST_F(KeywordTableTest, AnyOtherKeywordMakesAnEmptyBox) {
    FillKeywordTable();
    for (const char* keyword : {"", "row", "group", "popup_cluster", "Button", "button "}) {
        EXPECT_EQ(ClassOf(keyword), typeid(CEveEmpty)) << keyword;
    }
}

TEST_F(KeywordTableTest, AnEmptyTableMakesEmptyBoxesOnly) { EXPECT_EQ(ClassOf("button"), typeid(CEveEmpty)); }

TEST_F(KeywordTableTest, FillingTheTableAgainRestoresItsMakers) {
    FillKeywordTable();
    gToolkit.keywords.Define("button", Maker<CEveEmpty>);
    EXPECT_EQ(ClassOf("button"), typeid(CEveEmpty));
    FillKeywordTable();
    EXPECT_EQ(ClassOf("button"), typeid(CEveButton));
}

TEST_F(KeywordTableTest, KeywordsOfOneBucketStayApart) {
    std::vector<std::string> sameBucket;
    for (int i = 0; sameBucket.size() < 3; ++i) {
        const std::string keyword = "k" + std::to_string(i);
        if (KeyBucket(keyword) == KeyBucket("button")) sameBucket.push_back(keyword);
    }
    KeywordTable table;
    table.Define(sameBucket[0], Maker<CEveButton>);
    table.Define(sameBucket[1], Maker<CEveSlider>);
    EXPECT_EQ(table.Find(sameBucket[0]), &Maker<CEveButton>);
    EXPECT_EQ(table.Find(sameBucket[1]), &Maker<CEveSlider>);
    EXPECT_EQ(table.Find(sameBucket[2]), nullptr);
}

} // namespace
} // namespace brixen::zeve
