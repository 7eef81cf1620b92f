// The base of every control of a dialog: a thin object around one native control, in a tree that it owns.
// Boxes of a dialog all lie in the client area of its one top-level window; positions are absolute there.
// Everything here belongs to the thread that makes the dialog.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace brixen::zeve {

class CExpressionScope;
class EventRecord;

class CEveBox {
public:
    CEveBox() = default;
    CEveBox(const CEveBox&) = delete;
    CEveBox& operator=(const CEveBox&) = delete;
    // Frees the control's icon, the children from the front, the top-level window, the font, in this order.
    virtual ~CEveBox();

    // Runs while the view is read, before the layout: a class measures itself and writes `width`, `height`
    // and the like into `attributes`. `viewAttributes` are the view's parameters with their chain.
    virtual void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes);
    // Binds the box to its parent and makes its native control. Returns the box that serves the view's
    // children as parent. A box whose `parent` is set belongs to that parent, also when Create throws
    // afterward; one whose `parent` is null still belongs to the caller. Throws std::logic_error with the
    // control's class name when an exception passes through the making of the control.
    virtual CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox);
    // Takes `__zeve_set_value` of the record; what that is, depends on the class.
    virtual void SetValue(const EventRecord& record);
    virtual void SetSubCheck(bool checked);
    // Stores the value into the record, or nothing. A text (`__zeve_get_value_string`) is an array newly made
    // with new char[]; the caller frees it with delete[]. `honorSubCheck`: a box whose sub check is not set
    // (one without a sub check is not) yields nothing.
    virtual void GetValue(EventRecord& record, bool honorSubCheck);
    virtual bool GetSubCheck();
    // The box's own wish; it takes effect as far as its parents allow.
    virtual void SetVisible(bool isVisible);
    virtual void SetEnabled(bool isEnabled);
    virtual void EnableSubCheck();
    virtual void DisableSubCheck();
    // Shows the name text in the control.
    virtual void RefreshText();

    NativeWindow TopLevelWindow() const; // null at a root that has none
    CEveBox& Root();
    // This box or the first below it, depth first, with that `view_id`; null if none.
    CEveBox* FindByViewId(std::uint16_t id);
    // Shows or hides this control and its visible children by `inherited` and the box's own wish.
    void ApplyShowState(bool inherited);
    void ApplyEnableState(bool inherited);
    // Translates the name of this box and of all below it again.
    void Retranslate();

    NativeFont font = nullptr;  // owned
    bool checkBoxAware = false; // a small check box of its own stands in front of the control
    std::int16_t top = 0, left = 0, height = 0, width = 0; // pixels, in the dialog's client area
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

protected:
    // What the destructor does; harmless a second time. For a class that has to act after its window is gone.
    void TearDown() noexcept;

private:
    void BindToParent(CEveBox* parentBox);
    bool IsDisabledAsReadOnly() const { return readOnly && honoursReadOnly; }
};

} // namespace brixen::zeve
