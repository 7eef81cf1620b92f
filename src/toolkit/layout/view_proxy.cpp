#include "toolkit/layout/view_proxy.h"

#include <utility>

namespace brixen::zeve {
namespace {

constexpr ScopeName kCopiedBooleans[] = {"alwaysL2R"_name, "reverse"_name};

constexpr ScopeName kCopiedNumbers[] = {
    "width"_name,        "height"_name,           "inset"_name,          "top_inset"_name,
    "outset"_name,       "top_outset"_name,       "left_outset"_name,    "bottom_outset"_name,
    "right_outset"_name, "horizontal"_name,       "vertical"_name,       "spacing"_name,
    "placement"_name,    "child_horizontal"_name, "child_vertical"_name, "margin"_name,
    "margin_width"_name, "margin_height"_name,    "margin_top"_name,     "margin_left"_name,
    "margin_right"_name, "margin_bottom"_name,    "left_offset"_name,    "top_offset"_name};

void InheritNumber(CExpressionScope& attributes, const ScopeName& name, std::int32_t inherited) {
    if (inherited != 0 && !attributes.HasVariable(name)) attributes.DefineNumber(name, inherited);
}

std::int32_t IntOr(const CExpressionScope& attributes, const ScopeName& name, std::int32_t otherwise) {
    attributes.GetInt(name, &otherwise);
    return otherwise;
}

} // namespace

void ViewList::Append(ViewProxy& view) {
    (last ? last->next : first) = &view;
    last = &view;
    ++count;
}

void ViewList::Splice(ViewList& other) {
    if (other.IsEmpty()) return;
    (last ? last->next : first) = other.first;
    last = other.last;
    count += other.count;
    other = {};
}

void ViewList::Reverse() {
    last = first;
    ViewProxy* reversed = nullptr;
    for (ViewProxy* view = first; view;) {
        ViewProxy* const following = std::exchange(view->next, reversed);
        reversed = std::exchange(view, following);
    }
    first = reversed;
}

ViewDetails::ViewDetails(CGenerator& generator, std::string_view keyword, ViewProxy* enclosing,
                         const ViewInheritance& inherited)
    : viewName(keyword), attributes(nullptr, nullptr, &generator.pool), parent(enclosing),
      inheritedHorizontal(inherited.horizontal), inheritedVertical(inherited.vertical) {}

ViewProxy::ViewProxy(ViewDetails& itsDetails, CGenerator& generator, CExpressionScope& viewAttributes,
                     bool isOffscreen)
    : details(itsDetails), offscreen(isOffscreen) {
    CExpressionScope& attributes = details.attributes;
    CopyAttributes(viewAttributes);
    InheritNumber(attributes, "horizontal"_name, details.inheritedHorizontal);
    InheritNumber(attributes, "vertical"_name, details.inheritedVertical);
    generator.PrepareView(details.viewName, viewAttributes, attributes);
    ReadAttributes(viewAttributes);
}

void ViewProxy::CopyAttributes(const CExpressionScope& viewAttributes) {
    for (const ScopeName& name : kCopiedBooleans) CopyBoolean(details.attributes, viewAttributes, name);
    CopyNumbers(details.attributes, viewAttributes, kCopiedNumbers);
}

// A name that is absent leaves its field as it is, so the order counts wherever one field is another's
// default.
void ViewProxy::ReadAttributes(const CExpressionScope& viewAttributes) {
    const CExpressionScope& attributes = details.attributes;
    alwaysL2R = attributes.GetBooleanOr("alwaysL2R"_name, false);
    attributes.GetInt("width"_name, &width);
    attributes.GetInt("height"_name, &height);
    attributes.GetInt("inset"_name, &inset);
    ReadOutsets();
    attributes.GetInt("horizontal"_name, &horizontal);
    attributes.GetInt("vertical"_name, &vertical);
    if (!attributes.GetInt("spacing"_name, &spacing)) viewAttributes.GetInt("gSpace"_name, &spacing);
    reverse = attributes.GetBooleanOr("reverse"_name, false);
    attributes.GetInt("placement"_name, &placement);
    if (placement == kPlaceOffscreen) details.childHorizontal = kAlignFill;
    attributes.GetInt("child_horizontal"_name, &details.childHorizontal);
    attributes.GetInt("child_vertical"_name, &details.childVertical);
    ReadMargins();
    attributes.GetInt("left_offset"_name, &details.leftOffset);
    attributes.GetInt("top_offset"_name, &details.topOffset);
    hasOffset = details.leftOffset != 0 || details.topOffset != 0;
    hasLabel = attributes.GetInt("label_width"_name, &labelWidth);
}

void ViewProxy::ReadOutsets() {
    const CExpressionScope& attributes = details.attributes;
    attributes.GetInt("outset"_name, &details.outset);
    topOutset = leftOutset = bottomOutset = rightOutset = details.outset;
    attributes.GetInt("top_inset"_name, &topInset);
    attributes.GetInt("top_outset"_name, &topOutset);
    attributes.GetInt("left_outset"_name, &leftOutset);
    attributes.GetInt("bottom_outset"_name, &bottomOutset);
    attributes.GetInt("right_outset"_name, &rightOutset);
}

void ViewProxy::ReadMargins() {
    const CExpressionScope& attributes = details.attributes;
    const std::int32_t margin = IntOr(attributes, "margin"_name, 0);
    marginLeft = marginRight = IntOr(attributes, "margin_width"_name, margin);
    marginTop = marginBottom = IntOr(attributes, "margin_height"_name, margin);
    attributes.GetInt("margin_left"_name, &marginLeft);
    attributes.GetInt("margin_right"_name, &marginRight);
    attributes.GetInt("margin_top"_name, &marginTop);
    attributes.GetInt("margin_bottom"_name, &marginBottom);
}

} // namespace brixen::zeve
