#include "toolkit/layout/view_tree.h"

#include "toolkit/layout/layout.h"

namespace brixen::zeve {
namespace {

void WriteGeometry(ViewProxy& view) {
    CExpressionScope& attributes = view.Attributes();
    attributes.DefineNumber("height"_name, view.height);
    attributes.DefineNumber("width"_name, view.width);
    attributes.DefineNumber("top"_name, view.top);
    attributes.DefineNumber("left"_name, view.left);
    attributes.DefineNumber("outset"_name, view.details.outset);
    attributes.DefineNumber("top_outset"_name, view.topOutset);
    attributes.DefineNumber("left_outset"_name, view.leftOutset);
    attributes.DefineNumber("bottom_outset"_name, view.bottomOutset);
    attributes.DefineNumber("right_outset"_name, view.rightOutset);
    attributes.DefineNumber("label_width"_name, view.labelWidth);
}

} // namespace

ViewProxy& ViewTree::Make(std::string_view keyword, CExpressionScope& viewAttributes, ViewProxy* parent,
                          const ViewInheritance& inherited) {
    ViewDetails& itsDetails = details.Make(generator, generator.pool.Store(keyword), parent, inherited);
    return views.Make(itsDetails, generator, viewAttributes, inherited.offscreen);
}

ViewHandle ViewTree::LayOutAndMakeBoxes(ViewProxy& root) {
    LayOut(root, generator.rightToLeft);
    const ViewHandle handle = MakeBoxes(root, nullptr);
    return generator.fixedRoot ? generator.fixedRoot : handle;
}

ViewHandle ViewTree::MakeBoxes(ViewProxy& view, ViewHandle parentHandle) {
    current = &view;
    WriteGeometry(view);
    const ViewHandle handle = generator.CreateView(view.details.viewName, view.Attributes(), parentHandle);
    for (ViewProxy& child : view.children) MakeBoxes(child, handle);
    return handle;
}

} // namespace brixen::zeve
