#include "toolkit/dialog/zeve_generator.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_makers.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog_link.h"
#include "toolkit/event_record.h"
#include "toolkit/kept_exception.h"
#include "toolkit/toolkit_state.h"
#include "view/scope/expression_scope.h"

#include <algorithm>
#include <string>

namespace brixen::zeve {

namespace {

void DefineIds(CExpressionScope& attributes, const CExpressionScope& viewAttributes) {
    auto viewId = static_cast<std::uint16_t>(viewAttributes.GetLongOr("view_id"_name, 0));
    if (viewId == 0) viewId = ++gToolkit.lastViewId;
    attributes.DefineNumber("view_id"_name, viewId);
    attributes.DefineNumber("sub_view_id"_name, ++gToolkit.lastViewId);
}

void CopyCommonAttributes(CExpressionScope& to, const CExpressionScope& from) {
    for (const ScopeName& name : {"name"_name, "alt_name"_name, "class_name"_name})
        CopyString(to, from, name);
    for (const ScopeName& name : {"resource_id"_name, "max_chars"_name, "seven_bit_ascii"_name})
        CopyNumber(to, from, name);
    for (const ScopeName& name :
         {"word_wrap"_name, "__read_only_mode"_name, "locked"_name, "check_box_aware"_name})
        CopyBoolean(to, from, name);
    for (const ScopeName& name :
         {"font"_name, "__callback"_name, "__callback_params"_name, "__hInstance"_name, "margin"_name,
          "margin_top"_name, "margin_bottom"_name, "margin_left"_name, "margin_right"_name,
          "margin_height"_name, "margin_width"_name})
        CopyNumber(to, from, name);
    CopyString(to, from, "__languageInfo"_name);
}

// A box keeps copies of its texts, in UTF-8 and in UTF-16, and measures them, so they count as memory of the
// run: a long text that many views inherit would otherwise take memory without bound.
void ChargeTexts(ScopeMemory& memory, std::string_view shownName, const CExpressionScope& viewAttributes) {
    constexpr std::size_t kCopiedBytes = 3; // for each byte of a text
    const std::size_t nameBytes = viewAttributes.GetStringOr("name"_name, "").size();
    memory.Charge(std::max(nameBytes, shownName.size()) * kCopiedBytes);
    for (const ScopeName& name : {"alt_name"_name, "items"_name})
        memory.Charge(viewAttributes.GetStringOr(name, "").size() * kCopiedBytes);
}

void SpendControls(SystemBudget& budget, const CEveBox& box, std::string_view shownName,
                   const CExpressionScope& attributes) {
    if (box.windowsOfControl == 0) return;
    const bool mayHaveSubCheck = attributes.GetBooleanOr("check_box_aware"_name, false);
    Spend(budget.controls, box.windowsOfControl + (mayHaveSubCheck ? 1u : 0u));
    Spend(budget.shownBytes, shownName.size());
}

} // namespace

CZeveGenerator::CZeveGenerator(DialogLink* ownDialog) : dialog(ownDialog) {}

CZeveGenerator::~CZeveGenerator() { DeleteBoxes(); }

void CZeveGenerator::DeleteBoxes() noexcept { boxes.clear(); }

void CZeveGenerator::PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                                 CExpressionScope& attributes) {
    DefineIds(attributes, viewAttributes);
    CopyCommonAttributes(attributes, viewAttributes);
    CopyExtraAttributes(attributes, viewAttributes);
    const std::string shownName = ShownText(viewAttributes.GetStringOr("name"_name, ""));
    ChargeTexts(pool.Memory(), shownName, viewAttributes);
    attributes.DefineNumber("__gen"_name, ReferenceNumber(static_cast<CGenerator*>(this)));

    std::unique_ptr<CEveBox> made = MakeBox(viewKeyword);
    CEveBox& box = *made;
    boxes.emplace(&box, std::move(made));
    attributes.DefineNumber("__eveBoxObj"_name, ReferenceNumber(&box));
    box.classKeyword = viewKeyword;
    box.budget = &budget;
    box.Prepare(viewAttributes, attributes);
    SpendControls(budget, box, shownName, attributes);
}

void CZeveGenerator::CopyExtraAttributes(CExpressionScope& attributes,
                                         const CExpressionScope& viewAttributes) const {
    if (!NamesOwnDialog(viewAttributes)) return;
    for (const std::string& name : dialog->extraAttributeNames)
        CopyVariable(attributes, viewAttributes, std::string_view(name));
}

bool CZeveGenerator::NamesOwnDialog(const CExpressionScope& scope) const {
    return dialog != nullptr && scope.GetLongOr("__zeveInternalObj"_name, 0) == ReferenceNumber(dialog);
}

ViewHandle CZeveGenerator::CreateView(std::string_view, CExpressionScope& attributes,
                                      ViewHandle parentHandle) {
    const auto* reference = ReferenceFrom<const CEveBox>(attributes.GetLongOr("__eveBoxObj"_name, 0));
    const auto prepared = boxes.find(reference);
    if (prepared == boxes.end()) return parentHandle;
    CEveBox& box = *prepared->second;
    CEveBox* handle = CreateBox(box, attributes, parentHandle);
    if (handle == nullptr) return parentHandle;
    if (HasOwnCallback(attributes)) CallHost(attributes, box);
    return handle;
}

CEveBox* CZeveGenerator::CreateBox(CEveBox& box, CExpressionScope& attributes, CEveBox* parent) {
    // A box that has its parent belongs to that parent, even if Create throws.
    struct Handover {
        CZeveGenerator& generator;
        CEveBox& box;
        ~Handover() {
            if (box.parent != nullptr) static_cast<void>(generator.boxes.extract(&box).mapped().release());
        }
    };
    const Handover handover{*this, box};
    // The number of another dialog counts as absent, even if that dialog lives.
    if (attributes.HasVariable("__zeveInternalObj"_name) && !NamesOwnDialog(attributes))
        attributes.DefineNumber("__zeveInternalObj"_name, 0);
    CEveBox* handle = box.Create(attributes, parent);
    ThrowKeptException();
    return handle;
}

bool CZeveGenerator::HasOwnCallback(const CExpressionScope& attributes) const {
    if (dialog == nullptr || dialog->callback == nullptr) return false;
    return attributes.GetLongOr("__callback"_name, 0) == CallbackNumber(dialog->callback) &&
           attributes.GetLongOr("__callback_params"_name, 0) == ReferenceNumber(dialog->callbackParams);
}

void CZeveGenerator::CallHost(CExpressionScope& attributes, const CEveBox& box) const {
    EventRecord record;
    const bool isTopLevel = box.parent == nullptr;
    if (isTopLevel) {
        record.StorePointer(kKeyWindow, box.window);
    } else {
        record.StorePointer(kKeyControl, box.control);
        record.StorePointer(kKeySubControl, box.subControl);
    }
    record.StorePointer(kKeyWhat, box.classKeyword.c_str());
    record.StorePointer(kKeyScope, &attributes);
    dialog->callback(isTopLevel ? kWhatTopLevelMade : kWhatViewMade, record, dialog->callbackParams);
    ThrowKeptException();
}

} // namespace brixen::zeve
