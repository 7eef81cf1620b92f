#include "toolkit/boxes/box_makers.h"

#include "toolkit/boxes/eve_button.h"
#include "toolkit/boxes/eve_dialog.h"
#include "toolkit/boxes/eve_edit_number.h"
#include "toolkit/boxes/eve_edit_text.h"
#include "toolkit/boxes/eve_empty.h"
#include "toolkit/boxes/eve_frames.h"
#include "toolkit/boxes/eve_lists.h"
#include "toolkit/boxes/eve_pictures.h"
#include "toolkit/boxes/eve_popup.h"
#include "toolkit/boxes/eve_radio_button.h"
#include "toolkit/boxes/eve_ranges.h"
#include "toolkit/boxes/eve_static_text.h"
#include "toolkit/boxes/eve_static_text_enum.h"
#include "toolkit/boxes/eve_tab_group.h"
#include "toolkit/keyword_table.h"
#include "toolkit/toolkit_state.h"

namespace brixen::zeve {

namespace {

template <class Box>
std::unique_ptr<CEveBox> Make() {
    return std::make_unique<Box>();
}

struct CatalogueEntry {
    std::string_view keyword;
    BoxMaker maker;
};

constexpr CatalogueEntry kCatalogue[] = {
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
    for (const CatalogueEntry& entry : kCatalogue) gToolkit.keywords.Define(entry.keyword, entry.maker);
}

std::unique_ptr<CEveBox> MakeBox(std::string_view keyword) {
    const BoxMaker maker = gToolkit.keywords.Find(keyword);
    return maker ? maker() : std::make_unique<CEveEmpty>();
}

} // namespace brixen::zeve
