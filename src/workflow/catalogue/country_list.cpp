#include "workflow/catalogue/country_list.h"

#include "toolkit/boxes/item_list.h"
#include "values/unicode/text_conversion.h"
#include "workflow/platform/region.h"

#include <algorithm>
#include <vector>

namespace brixen::pvn::pvn_workflow {

namespace {

struct Country {
    std::string sortKey; // empty for no choice
    zeve::ListItem item;
};

} // namespace

std::string SortedCountries(std::string_view list, std::string_view locale) {
    std::vector<Country> countries;
    for (zeve::ListItem& item : zeve::ParseItemList(list, zeve::Separators::kDrop)) {
        std::string key;
        if (!item.value.empty()) key = platform::SortKey(locale, lyr::gen::ToUtf16(item.label, true));
        countries.push_back({std::move(key), std::move(item)});
    }
    std::ranges::stable_sort(countries, {}, &Country::sortKey);
    std::string sorted;
    for (const Country& country : countries) {
        if (!sorted.empty()) sorted += ';';
        sorted += country.item.label + "{" + country.item.value + "}";
    }
    return sorted;
}

} // namespace brixen::pvn::pvn_workflow
