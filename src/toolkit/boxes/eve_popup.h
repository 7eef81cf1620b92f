// Lists that drop down, to choose one of some texts by value.
#pragma once

#include "toolkit/boxes/eve_box.h"
#include "toolkit/boxes/item_list.h"

#include <string>
#include <vector>

namespace brixen::zeve {

class CEvePopup : public CEveBox {
public:
    CEvePopup() { honoursReadOnly = true; }
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // The first item is chosen.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // The value of an item, a text or the four-character code of a scope; `-` leaves all as it is. A value
    // that no item has chooses the first one.
    void SetValue(const EventRecord& record) override;
    // The value of the item chosen, unless it is empty.
    void GetValue(EventRecord& record, bool honorSubCheck) override;
    // Fills the list again in the words of now, and keeps the value chosen.
    void RefreshText() override;

    // Nothing sets it today: no check box stands in front, and none is honored.
    bool ignoresSubCheck = false;

private:
    void Fill();
    void Select(std::string_view value);
    const ListItem* SelectedItem() const;

    std::string fItemsKey; // as the view gives it, usually a dictionary key
    std::vector<ListItem> fItems;
};

// A popup that takes only the room of its button.
class CEveButtonPopup : public CEvePopup {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    void GetValue(EventRecord& record, bool honorSubCheck) override;
};

} // namespace brixen::zeve
