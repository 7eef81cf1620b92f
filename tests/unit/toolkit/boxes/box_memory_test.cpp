// Lets memory run out at each allocation in the life of each kind of box.
#include "dictionaries/translation.h"
#include "support/failing_allocator.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/zeve_generator.h"
#include "toolkit/kept_exception.h"
#include "unit/toolkit/dialog/dialog_fixture.h"
#include "view/scope/expression_scope.h"

#include <exception>
#include <memory>
#include <string>

namespace brixen::zeve {
namespace {

constexpr std::uint16_t kId = 7;
constexpr const char* kAttributes = "(view_id: 7, name: 'A name; that is long', items: "
                                    "'$$$/items=First{1};-;The second{2}', check_box_aware: 1,"
                                    " initial_value: 1, default: 1, create_user_pane: 1, seven_bit_ascii: 1, "
                                    "builtin_icon: 32515, max_chars: 9)";

// Stores the box that is made last.
struct BoxHost : TestHost {
    BoxHost() {
        answer = [this](std::int32_t what, EventRecord& record) -> std::uint64_t {
            if (what == kWhatViewMade) {
                const auto* scope = record.ReadPointer<const CExpressionScope*>(kKeyScope);
                box = ReferenceFrom<CEveBox>(scope->GetLongOr("__eveBoxObj"_name, 0));
            }
            return kAnswerDefault;
        };
    }
    CEveBox* box = nullptr;
};

void ReadValue(CEveBox& box, bool honorSubCheck) {
    EventRecord record;
    box.GetValue(record, honorSubCheck);
    if (record.Has(kKeyValueString)) delete[] record.ReadPointer<char*>(kKeyValueString);
}

void LiveWith(const std::string& keyword) {
    BoxHost host;
    const std::string view = "dialog() { " + keyword + kAttributes + "; }";
    const DialogOwner dialog = MadeDialog(host, view.c_str());
    EventRecord value;
    value.StorePointer(kKeySetValue, "2");
    ZeveSetValue(dialog.get(), kId, value);
    ReadValue(*host.box, true);
    host.box->SetSubCheck(true);
    ReadValue(*host.box, true);
    ZeveRetranslate(dialog.get());
    ZeveHide(dialog.get(), kId);
    ReadValue(*host.box, false);
}

class BoxMemoryTest : public DialogTest, public testing::WithParamInterface<const char*> {};

TEST_P(BoxMemoryTest, ABoxLeaksNothingWhenAnAllocationFails) {
    ZeveInitialize();
    // The dictionary makes its index once, after enough searches.
    for (int n = 0; n < 10000; ++n) (void)ZeveTranslate("$$$/items=");
    const auto live = [] {
        try {
            LiveWith(GetParam());
        } catch (const std::exception&) {
            // Out of memory, or the logic error of a control that could not be made for lack of it.
        }
        EXPECT_TRUE(headless::State().windows.empty());
        EXPECT_TRUE(headless::State().fonts.empty());
        EXPECT_FALSE(IsExceptionKept());
        headless::State().icons.clear(); // one that the recorded control had no memory to remember
        headless::State().calls.clear();
    };
    EXPECT_GT(pavane_test::ForEveryFailingAllocation(live), 50u);
}

INSTANTIATE_TEST_SUITE_P(Keywords, BoxMemoryTest,
                         testing::Values("pane", "button", "hyperlink", "radio", "check_box", "radio_group",
                                         "tab_group", "edit_text", "edit_number", "cluster", "slider",
                                         "separator", "picture", "icon", "static_text", "static_text_enum",
                                         "list_box", "scroller", "progress_bar", "table", "popup",
                                         "button_popup"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
} // namespace brixen::zeve
