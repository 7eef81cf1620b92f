// The base of every box of a dialog: a thin object around one native control, in a tree of owners.
// All controls of a dialog are children of its one top-level window; positions are absolute in its client
// area. Only the thread that makes the dialog uses its boxes.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class CExpressionScope;
class EventRecord;
struct SystemBudget;

class CEveBox {
public:
    CEveBox() = default;
    CEveBox(const CEveBox&) = delete;
    CEveBox& operator=(const CEveBox&) = delete;
    // Frees, in this order: the control's icon, the children from the front, the top-level window, the font.
    virtual ~CEveBox();

    // Measures the box, while the view is read and before the layout: writes `width`, `height` and others
    // into `attributes`. `viewAttributes` are the view's own attributes, chained to those of its parents.
    virtual void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes);
    // Binds the box to its parent and makes its native control. Returns the parent for the boxes of the
    // view's children. Once `parent` is set, the parent owns the box, even if Create throws afterward; a box
    // without parent belongs to the caller. Throws std::logic_error with the control's class name if an
    // exception leaves the making of the control.
    virtual CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox);
    // Takes `__zeve_set_value` of the record, a text or a number, as the class says. Does nothing here.
    virtual void SetValue(const EventRecord& record);
    virtual void SetSubCheck(bool checked);
    // Stores the value in the record, as the class says, or nothing. A text is stored by StoreNewText. With
    // `honorSubCheck`, a box stores nothing unless it has a sub check that is set. Does nothing here.
    virtual void GetValue(EventRecord& record, bool honorSubCheck);
    [[nodiscard]] virtual bool GetSubCheck();
    // Kept: does nothing and is replaced by no class. The number and the order of the virtual operations are
    // fixed.
    virtual void SpareOperation7() {}
    // Store the box's own state. A hidden parent keeps it hidden, a disabled parent disabled.
    virtual void SetVisible(bool isVisible);
    virtual void SetEnabled(bool isEnabled);
    virtual void EnableSubCheck();
    virtual void DisableSubCheck();
    // Shows the name text in the control.
    virtual void RefreshText();
    // Kept: as SpareOperation7.
    virtual void SpareOperation13() {}

    // Returns the window of this box or of the nearest parent that has one; null if none has.
    [[nodiscard]] NativeWindow TopLevelWindow() const;
    [[nodiscard]] CEveBox& Root();
    // Returns this box or the first below it, depth first, with that `view_id`; null if there is none.
    [[nodiscard]] CEveBox* FindByViewId(std::uint16_t id);
    // Show or enable the control if `inherited` and the box's own state allow it, and pass the result on to
    // the children that are visible or enabled themselves.
    void ApplyShowState(bool inherited);
    void ApplyEnableState(bool inherited);
    // Translates the names of this box and of all boxes below it again, and shows them.
    void Retranslate();

    NativeFont font = nullptr;  // of the control; the root owns it
    bool checkBoxAware = false; // asks for a sub check, a small check box in front of the control
    std::int16_t top = 0, left = 0, height = 0, width = 0; // pixels, in the dialog's client area
    std::uint16_t viewId = 0, subViewId = 0;
    NativeWindow window = nullptr; // the top-level window; only a CEveDialog sets it
    CEveBox* parent = nullptr;     // not owned
    NativeWindow control = nullptr;
    NativeWindow subControl = nullptr;
    std::string classKeyword; // the keyword of the view
    // Of the generator that made the box and outlives it; null means no limits.
    SystemBudget* budget = nullptr;
    std::uint8_t windowsOfControl = 1;   // native ones, without the sub check; known after Prepare
    bool visible = true, enabled = true; // the box's own state
    bool readOnly = false;
    bool honoursReadOnly = false;                 // a read-only box is shown disabled
    std::string nameKey;                          // as in the view, usually a dictionary key
    std::string nameText;                         // the same, translated
    std::list<std::unique_ptr<CEveBox>> children; // in creation order
    // Of a root: the fonts of all boxes. They are deleted after the window, which paints with them.
    std::vector<NativeFont> fontsOfTree;

protected:
    // Does what the destructor does; a second call does nothing. A class whose own destructor needs the
    // window to be gone calls it first.
    void TearDown() noexcept;

    // Does what CEveBox::Create does, for a class that makes another control than the class it derives from.
    void Bind(CExpressionScope& attributes, CEveBox* parentBox);

    // Set and read the text of the first control of the dialog that has the box's id. A box without control
    // changes nothing and returns an empty text. A lone surrogate in a field is returned as three bytes,
    // which show it again.
    void SetTextById(std::string_view text) const;
    [[nodiscard]] std::string TextById() const;

private:
    void BindToParent(CEveBox* parentBox);
    bool IsDisabledAsReadOnly() const { return readOnly && honoursReadOnly; }
};

} // namespace brixen::zeve
