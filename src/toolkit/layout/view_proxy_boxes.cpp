// The last pass over a view tree: final geometry into the attributes, and a box for each view.
#include "toolkit/layout/layout.h"
#include "toolkit/layout/view_proxy.h"

namespace brixen::zeve {
namespace {

void WriteGeometry(ViewProxy& view) {
    CExpressionScope& attributes = view.attributes;
    attributes.DefineNumber("height"_name, view.height);
    attributes.DefineNumber("width"_name, view.width);
    attributes.DefineNumber("top"_name, view.top);
    attributes.DefineNumber("left"_name, view.left);
    attributes.DefineNumber("outset"_name, view.outset);
    attributes.DefineNumber("top_outset"_name, view.topOutset);
    attributes.DefineNumber("left_outset"_name, view.leftOutset);
    attributes.DefineNumber("bottom_outset"_name, view.bottomOutset);
    attributes.DefineNumber("right_outset"_name, view.rightOutset);
    attributes.DefineNumber("label_width"_name, view.labelWidth);
}

ViewHandle MakeBoxes(CGenerator& generator, ViewProxy& view, ViewHandle parentHandle) {
    WriteGeometry(view);
    const ViewHandle handle = generator.CreateView(view.viewName, view.attributes, parentHandle);
    for (const auto& child : view.children) MakeBoxes(generator, *child, handle);
    return handle;
}

} // namespace

ViewHandle ViewProxy::LayOutAndMakeBoxes(CGenerator& generator) {
    LayOut(*this, generator.rightToLeft);
    const ViewHandle root = MakeBoxes(generator, *this, nullptr);
    return generator.fixedRoot ? generator.fixedRoot : root;
}

} // namespace brixen::zeve
