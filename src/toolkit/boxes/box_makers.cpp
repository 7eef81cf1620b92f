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
#include "toolkit/keyword_table.h"
#include "toolkit/toolkit_state.h"

namespace brixen::zeve {

namespace {

template <class Box>
std::unique_ptr<CEveBox> Make() {
    return std::make_unique<Box>();
}

struct KeywordMaker {
    std::string_view keyword;
    BoxMaker maker;
};

constexpr KeywordMaker kMakers[] = {
    {"dialog", Make<CEveDialog>},
    {"button", Make<CEveButton>},
    {"hyperlink", Make<CEveHyperlink>},
    {"radio", Make<CEveRadioButton>},
    {"check_box", Make<CEveCheckBox>},
    {"radio_group", Make<CEveRadioGroup>},
    {"tab_group", Make<CEveTabGroup>},
    {"edit_text", Make<CEveEditText>},
    {"edit_number", Make<CEveEditNumber>},
    {"cluster", Make<CEveCluster>},
    {"slider", Make<CEveSlider>},
    {"separator", Make<CEveSeparator>},
    {"picture", Make<CEvePicture>},
    {"icon", Make<CEveIcon>},
    {"static_text", Make<CEveStaticText>},
    {"static_text_enum", Make<CEveStaticTextEnum>},
    {"list_box", Make<CEveListBox>},
    {"scroller", Make<CEveScroller>},
    {"progress_bar", Make<CEveProgressBar>},
    {"table", Make<CEveTreeCtrl>},
    {"popup", Make<CEvePopup>},
    {"button_popup", Make<CEveButtonPopup>},
};

} // namespace

void FillKeywordTable() {
    for (const KeywordMaker& entry : kMakers) gToolkit.keywords.Define(entry.keyword, entry.maker);
}

std::unique_ptr<CEveBox> MakeBox(std::string_view keyword) {
    const BoxMaker maker = gToolkit.keywords.Find(keyword);
    return maker ? maker() : std::make_unique<CEveEmpty>();
}

} // namespace brixen::zeve
