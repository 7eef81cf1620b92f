// The base of every control of a dialog: a thin object around one native control, in a tree that it owns.
// Boxes of a dialog all lie in the client area of its one top-level window; positions are absolute there.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>

namespace brixen::zeve {

class CExpressionScope;
class EventRecord;

class CEveBox {
public:
    CEveBox() = default;
    CEveBox(const CEveBox&) = delete;
    CEveBox& operator=(const CEveBox&) = delete;
    virtual ~CEveBox();

    // Runs while the view is read, before the layout: a class measures itself and writes `width`, `height` and the
    // like into `attributes`. `viewAttributes` are the view's parameters with their chain.
    virtual void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes);
    // Binds the box to its parent, which owns it from here on, and makes its native control. Returns the box that
    // serves the view's children as parent.
    virtual CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox);
    virtual void SetValue(const EventRecord& record);
    virtual void SetSubCheck(bool checked);
    // `honourSubCheck`: a box whose sub check is not set yields nothing.
    virtual void GetValue(EventRecord& record, bool honourSubCheck);
    virtual bool GetSubCheck();
    virtual void SetVisible(bool visible);
    virtual void SetEnabled(bool enabled);
    virtual void EnableSubCheck();
    virtual void DisableSubCheck();
    virtual void RefreshText();

    NativeWindow TopLevelWindow() const;
    CEveBox& Root();
    // This box or the first below it, depth first, with that `view_id`; null if none.
    CEveBox* FindByViewId(std::uint16_t id);
    // Shows or hides this control and its visible children by `inherited` and the box's own wish.
    void ApplyShowState(bool inherited);
    void ApplyEnableState(bool inherited);
    // Translates the name of this box and of all below it again.
    void Retranslate();

    NativeFont font = nullptr; // owned
    bool checkBoxAware = false;
    std::int16_t top = 0, left = 0, height = 0, width = 0;
    std::uint16_t viewId = 0, subViewId = 0;
    NativeWindow window = nullptr; // the top-level window; only a CEveDialog sets it
    CEveBox* parent = nullptr;     // not owned
    NativeWindow control = nullptr;
    NativeWindow subControl = nullptr;
    std::string classKeyword;
    bool visible = true, enabled = true;
    bool readOnly = false;
    bool honoursReadOnly = false; // a read-only box is shown disabled
    std::string nameKey, nameText;
    std::list<std::unique_ptr<CEveBox>> children; // in creation order
};

} // namespace brixen::zeve
