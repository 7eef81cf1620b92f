// A label that shows one of several texts, selected by value.
#pragma once

#include "toolkit/boxes/eve_static_text.h"
#include "toolkit/boxes/item_list.h"

#include <optional>
#include <string>
#include <vector>

namespace brixen::zeve {

class CEveStaticTextEnum : public CEveStaticText {
public:
    void Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) override;
    // The label is empty until a value is set.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // Takes the value of an item, a text or the four-character code of a scope. `-` leaves the selection
    // alone; a value that no item has selects the first item, or, if its label is empty, shows nothing.
    void SetValue(const EventRecord& record) override;
    // Stores the selected value, unless it is empty.
    void GetValue(EventRecord& record, bool honorSubCheck) override;
    // Shows the label of the selected value in the present language.
    void RefreshText() override;

private:
    std::string itemsKey; // as in the view, usually a dictionary key
    std::vector<ListItem> items;
    std::optional<std::string> selectedValue;
};

} // namespace brixen::zeve
