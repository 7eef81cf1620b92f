// Makes single boxes, as the reader and the layout do, on the recorded window system.
#pragma once

#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/zeve_generator.h"
#include "toolkit/platform/headless/headless.h"
#include "view/scope/expression_scope.h"

#include <gtest/gtest.h>

#include <deque>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brixen::zeve {

struct Attribute {
    std::string_view name;
    std::variant<std::int64_t, std::string_view> value;

    Attribute(std::string_view itsName, int number) : name(itsName), value(std::int64_t{number}) {}
    Attribute(std::string_view itsName, std::int64_t number) : name(itsName), value(number) {}
    Attribute(std::string_view itsName, const char* text) : name(itsName), value(std::string_view(text)) {}
    Attribute(std::string_view itsName, std::string_view text) : name(itsName), value(text) {}
};
using Attributes = std::vector<Attribute>;

// A view that is prepared but has no control yet.
struct PreparedView {
    CExpressionScope* viewAttributes;
    CExpressionScope* attributes;
    CEveBox* box;

    std::int64_t Number(std::string_view name) const { return attributes->GetLongOr(name, kUndefinedNumber); }
};

class BoxTest : public testing::Test {
protected:
    BoxTest();
    ~BoxTest() override;

    PreparedView Prepare(std::string_view keyword, const Attributes& attributes = {});
    // Makes the box at the position that its attributes hold.
    CEveBox& Create(const PreparedView& view, CEveBox* parent);
    CEveBox& MakeDialog(const Attributes& attributes = {});
    // Prepares and creates a box below the dialog, which is made first if there is none.
    CEveBox& Make(std::string_view keyword, const Attributes& attributes = {});
    CEveBox& MakeBelow(CEveBox& parent, std::string_view keyword, const Attributes& attributes = {});

    static headless::Window& WindowOf(const CEveBox& box);
    // The texts of the calls with that name.
    static std::vector<std::u16string> TextsOf(std::string_view callName);
    // The number of times that the message was sent to the window.
    static std::size_t TimesSent(NativeWindow window, std::uint32_t message);
    // Adds `key=text` to the dictionary of the process.
    static void Translate(const char* keyValue);
    static std::string Value(CEveBox& box, bool honorSubCheck = false); // "<none>" if it stores nothing
    static void SetText(CEveBox& box, const char* text);

    CExpressionScope rootScope;
    CZeveGenerator generator;
    CEveBox* dialog = nullptr;

private:
    std::deque<CExpressionScope> scopes;
};

} // namespace brixen::zeve
