// A label that shows one of a list of texts, chosen by value.
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
    // The label shows nothing until a value is set.
    CEveBox* Create(CExpressionScope& attributes, CEveBox* parentBox) override;
    // The value of an item, a text or the four-character code of a scope; `-` leaves all as it is. A value
    // that no item has chooses the first one.
    void SetValue(const EventRecord& record) override;
    // The value chosen, unless it is empty.
    void GetValue(EventRecord& record, bool honorSubCheck) override;
    // Shows the label of the value chosen, in the words of now.
    void RefreshText() override;

private:
    std::string fItemsKey; // as the view gives it, usually a dictionary key
    std::vector<ListItem> fItems;
    std::optional<std::string> fValue; // the one chosen last
};

} // namespace brixen::zeve
