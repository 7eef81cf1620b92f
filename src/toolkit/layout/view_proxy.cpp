#include "toolkit/layout/view_proxy.h"

#include <iterator>
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

ViewProxy::ViewProxy(CGenerator& generator, std::string_view viewKeyword, CExpressionScope& viewAttributes,
                     ViewProxy* enclosing, const ViewInheritance& inherited)
    : offscreen(inherited.offscreen), inheritedHorizontal(inherited.horizontal),
      inheritedVertical(inherited.vertical), parent(enclosing), viewName(viewKeyword),
      attributes(nullptr, nullptr, &generator.pool) {
    CopyAttributes(viewAttributes);
    InheritNumber(attributes, "horizontal"_name, inheritedHorizontal);
    InheritNumber(attributes, "vertical"_name, inheritedVertical);
    generator.PrepareView(viewName, viewAttributes, attributes);
    ReadAttributes(viewAttributes);
}

ViewProxy::~ViewProxy() = default;

void ViewProxy::SpliceChildren(ViewProxyList&& views) {
    if (children.empty()) {
        children = std::move(views);
    } else {
        children.insert(children.end(), std::make_move_iterator(views.begin()),
                        std::make_move_iterator(views.end()));
    }
    views.clear();
}

void ViewProxy::CopyAttributes(const CExpressionScope& viewAttributes) {
    for (const ScopeName& name : kCopiedBooleans) CopyBoolean(attributes, viewAttributes, name);
    CopyNumbers(attributes, viewAttributes, kCopiedNumbers);
}

// A name that is absent leaves its field as it is, so the order counts wherever one field is another's
// default.
void ViewProxy::ReadAttributes(const CExpressionScope& viewAttributes) {
    attributes.GetBoolean("alwaysL2R"_name, &alwaysL2R);
    attributes.GetInt("width"_name, &width);
    attributes.GetInt("height"_name, &height);
    attributes.GetInt("inset"_name, &inset);
    ReadOutsets();
    attributes.GetInt("horizontal"_name, &horizontal);
    attributes.GetInt("vertical"_name, &vertical);
    if (!attributes.GetInt("spacing"_name, &spacing)) viewAttributes.GetInt("gSpace"_name, &spacing);
    attributes.GetBoolean("reverse"_name, &reverse);
    attributes.GetInt("placement"_name, &placement);
    if (placement == kPlaceOffscreen) childHorizontal = kAlignFill;
    attributes.GetInt("child_horizontal"_name, &childHorizontal);
    attributes.GetInt("child_vertical"_name, &childVertical);
    ReadMargins();
    attributes.GetInt("left_offset"_name, &leftOffset);
    attributes.GetInt("top_offset"_name, &topOffset);
    hasLabel = attributes.GetInt("label_width"_name, &labelWidth);
}

void ViewProxy::ReadOutsets() {
    attributes.GetInt("outset"_name, &outset);
    topOutset = leftOutset = bottomOutset = rightOutset = outset;
    attributes.GetInt("top_inset"_name, &topInset);
    attributes.GetInt("top_outset"_name, &topOutset);
    attributes.GetInt("left_outset"_name, &leftOutset);
    attributes.GetInt("bottom_outset"_name, &bottomOutset);
    attributes.GetInt("right_outset"_name, &rightOutset);
}

void ViewProxy::ReadMargins() {
    const std::int32_t margin = IntOr(attributes, "margin"_name, 0);
    marginLeft = marginRight = IntOr(attributes, "margin_width"_name, margin);
    marginTop = marginBottom = IntOr(attributes, "margin_height"_name, margin);
    attributes.GetInt("margin_left"_name, &marginLeft);
    attributes.GetInt("margin_right"_name, &marginRight);
    attributes.GetInt("margin_top"_name, &marginTop);
    attributes.GetInt("margin_bottom"_name, &marginBottom);
}

} // namespace brixen::zeve
