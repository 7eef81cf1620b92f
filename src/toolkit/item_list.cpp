#include "toolkit/item_list.h"

#include <algorithm>
#include <optional>

namespace brixen::zeve {

namespace {

constexpr std::string_view kSeparatorLabel = "-";
constexpr std::string_view kSeparatorValue = "<$zeve_enum-item_separator$>";

// No value for a separator.
std::optional<ListItem> ParseEntry(std::string_view entry) {
    const std::size_t open = entry.find('{');
    if (open == std::string_view::npos) return std::nullopt;
    const std::size_t close = entry.find('}', open);
    if (close == std::string_view::npos) return std::nullopt;
    return ListItem{std::string(entry.substr(0, open)),
                    std::string(entry.substr(open + 1, close - open - 1))};
}

bool IsThereAlready(const std::vector<ListItem>& items, const ListItem& added) {
    return std::any_of(items.begin(), items.end(), [&](const ListItem& item) {
        return item.label == added.label || item.value == added.value;
    });
}

void AddEntry(std::vector<ListItem>& items, std::string_view entry, Separators separators) {
    if (std::optional<ListItem> item = ParseEntry(entry)) {
        if (!IsThereAlready(items, *item)) items.push_back(std::move(*item));
    } else if (separators == Separators::Keep) {
        items.push_back({std::string(kSeparatorLabel), std::string(kSeparatorValue)});
    }
}

} // namespace

std::vector<ListItem> ParseItemList(std::string_view text, Separators separators) {
    std::vector<ListItem> items;
    while (!text.empty()) {
        const std::string_view entry = text.substr(0, text.find(';'));
        if (!entry.empty()) AddEntry(items, entry, separators);
        text.remove_prefix(std::min(text.size(), entry.size() + 1));
    }
    return items;
}

const ListItem* FindItemByValue(const std::vector<ListItem>& items, std::string_view value) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const ListItem& item) { return item.value == value; });
    return found == items.end() ? nullptr : &*found;
}

} // namespace brixen::zeve
