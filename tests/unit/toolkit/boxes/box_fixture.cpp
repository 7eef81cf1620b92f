#include "unit/toolkit/boxes/box_fixture.h"

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/translation.h"
#include "toolkit/boxes/box_makers.h"
#include "toolkit/dialog/window_procedures.h"
#include "toolkit/event_record.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"

#include <algorithm>

namespace brixen::zeve {

namespace {

constexpr std::string_view kNothing = "<none>";

void Define(CExpressionScope& scope, const Attribute& attribute) {
    if (const auto* number = std::get_if<std::int64_t>(&attribute.value)) {
        scope.DefineNumber(attribute.name, *number);
    } else {
        scope.DefineString(attribute.name, std::get<std::string_view>(attribute.value));
    }
}

} // namespace

BoxTest::BoxTest() {
    headless::Reset();
    ResetToolkit();
    kestrel_private::ResetState();
    InstallWindowProcedures();
    FillKeywordTable();
    rootScope.DefineConstants(true);
    InstallViewConstants(rootScope);
}

BoxTest::~BoxTest() {
    generator.DeleteBoxes();
    headless::Reset();
    ResetToolkit();
    kestrel_private::ResetState();
}

PreparedView BoxTest::Prepare(std::string_view keyword, const Attributes& attributes) {
    CExpressionScope& viewAttributes = scopes.emplace_back(&rootScope);
    CExpressionScope& own = scopes.emplace_back();
    for (const Attribute& attribute : attributes) Define(viewAttributes, attribute);
    // The reader copies these before it prepares the view.
    CopyBoolean(own, viewAttributes, "alwaysL2R"_name);
    for (const ScopeName& name : {"width"_name, "height"_name, "left"_name, "top"_name}) {
        CopyNumber(own, viewAttributes, name);
    }
    generator.PrepareView(keyword, viewAttributes, own);
    return {&viewAttributes, &own, ReferenceFrom<CEveBox>(own.GetLongOr("__eveBoxObj"_name, 0))};
}

CEveBox& BoxTest::Create(const PreparedView& view, CEveBox* parent) {
    generator.CreateView("", *view.attributes, parent);
    return *view.box;
}

CEveBox& BoxTest::MakeDialog(const Attributes& attributes) {
    dialog = &Create(Prepare("dialog", attributes), nullptr);
    return *dialog;
}

CEveBox& BoxTest::Make(std::string_view keyword, const Attributes& attributes) {
    if (!dialog) MakeDialog();
    return MakeBelow(*dialog, keyword, attributes);
}

CEveBox& BoxTest::MakeBelow(CEveBox& parent, std::string_view keyword, const Attributes& attributes) {
    return Create(Prepare(keyword, attributes), &parent);
}

headless::Window& BoxTest::WindowOf(const CEveBox& box) {
    headless::Window* window = headless::FindWindow(box.control);
    if (!window) throw std::logic_error("the box has no control");
    return *window;
}

std::vector<std::u16string> BoxTest::TextsOf(std::string_view callName) {
    std::vector<std::u16string> texts;
    for (const headless::Call& call : headless::CallsOf(callName)) texts.push_back(call.text);
    return texts;
}

std::size_t BoxTest::TimesSent(NativeWindow window, std::uint32_t message) {
    const auto calls = headless::CallsOf("Send");
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(), [&](const headless::Call& call) {
            return call.window == window && call.numbers.front() == message;
        }));
}

void BoxTest::Translate(const char* keyValue) { AddKeyValue(keyValue); }

std::string BoxTest::Value(CEveBox& box, bool honorSubCheck) {
    EventRecord record;
    box.GetValue(record, honorSubCheck);
    if (!record.Has(kKeyValueString)) return std::string(kNothing);
    const std::unique_ptr<char[]> text(record.ReadPointer<char*>(kKeyValueString));
    return text.get();
}

void BoxTest::SetText(CEveBox& box, const char* text) {
    EventRecord record;
    record.StorePointer(kKeySetValue, text);
    box.SetValue(record);
}

} // namespace brixen::zeve
