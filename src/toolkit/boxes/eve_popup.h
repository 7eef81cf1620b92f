// A drop-down list that selects one of several texts by value.
#pragma once

#include "toolkit/boxes/eve_box.h"
#include "toolkit/boxes/item_list.h"

#include <string>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class CEvePopup : public CEveBox {
public:
    CEvePopup() { honoursReadOnly = true; }
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // Fills the list and selects its first item.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // Takes the value of an item, a text or the four-character code of a scope. `-` leaves the selection
    // alone; a value that no item has selects the first item.
    void SetValue(const EventRecord& record) override;
    // Stores the value of the selected item, unless it is empty.
    void GetValue(EventRecord& record, bool honorSubCheck) override;
    // Fills the list again in the present language and keeps the selection by value.
    void RefreshText() override;

    // Kept: nothing sets it. If set, the popup has no sub check and honors none.
    bool ignoresSubCheck = false;

private:
    void Fill();
    void Select(std::string_view value);
    const ListItem* SelectedItem() const;

    std::string itemsKey; // as in the view, usually a dictionary key
    std::vector<ListItem> items;
};

} // namespace brixen::zeve
