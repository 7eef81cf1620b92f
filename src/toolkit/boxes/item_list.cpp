#include "toolkit/boxes/item_list.h"

#include "toolkit/boxes/eve_box.h"
#include "view/scope/system_budget.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

namespace brixen::zeve {

namespace {

struct Entry {
    std::string_view label, value;
};

constexpr Entry kSeparator = {"-", "<$zeve_enum-item_separator$>"};

// Returns no entry for a separator.
std::optional<Entry> ParseEntry(std::string_view text) {
    const std::size_t open = text.find('{');
    if (open == std::string_view::npos) return std::nullopt;
    const std::size_t close = text.find('}', open);
    if (close == std::string_view::npos) return std::nullopt;
    return Entry{text.substr(0, open), text.substr(open + 1, close - open - 1)};
}

// Collects the items. Sets of their labels and values keep reading linear in the text.
class ListReader {
public:
    explicit ListReader(Separators separators) : separators(separators) {}

    void Read(std::string_view text) {
        if (const std::optional<Entry> entry = ParseEntry(text)) {
            if (!labels.contains(entry->label) && !values.contains(entry->value)) Append(*entry);
        } else if (separators == Separators::kKeep) {
            Append(kSeparator);
        }
    }
    std::vector<ListItem> Take() { return std::move(items); }

private:
    void Append(const Entry& entry) {
        labels.insert(entry.label);
        values.insert(entry.value);
        items.push_back({std::string(entry.label), std::string(entry.value)});
    }

    Separators separators;
    std::vector<ListItem> items;
    std::unordered_set<std::string_view> labels, values; // views of the text that is read
};

} // namespace

std::vector<ListItem> ParseItemList(std::string_view text, Separators separators) {
    ListReader reader(separators);
    while (!text.empty()) {
        const std::string_view entry = text.substr(0, text.find(';'));
        if (!entry.empty()) reader.Read(entry);
        text.remove_prefix(std::min(text.size(), entry.size() + 1));
    }
    return reader.Take();
}

void SpendItems(const CEveBox& box, std::string_view text, std::size_t costOfAnEntry) {
    if (box.budget == nullptr || text.empty()) return;
    const auto entries = static_cast<std::size_t>(std::count(text.begin(), text.end(), ';')) + 1;
    Spend(box.budget->listItems, entries * costOfAnEntry);
}

const ListItem* FindItemByValue(const std::vector<ListItem>& items, std::string_view value) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const ListItem& item) { return item.value == value; });
    return found == items.end() ? nullptr : &*found;
}

} // namespace brixen::zeve
