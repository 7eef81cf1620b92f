#include "workflow/platform/region.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

using lyr::gen::Wide;

constexpr int kCountryUnits = 3; // with the terminator

// Of two capital letters; empty for anything else, such as the number of a larger region.
std::string CodeOf(const wchar_t (&text)[kCountryUnits]) {
    const auto isCapital = [](wchar_t unit) { return unit >= L'A' && unit <= L'Z'; };
    if (!isCapital(text[0]) || !isCapital(text[1])) return {};
    return {static_cast<char>(text[0]), static_cast<char>(text[1])};
}

std::string KeyOfUnits(std::u16string_view text) {
    std::string key;
    for (const char16_t unit : text) {
        key += static_cast<char>(unit >> 8);
        key += static_cast<char>(unit & 0xFF);
    }
    return key;
}

} // namespace

std::string UserCountry() {
    wchar_t place[kCountryUnits] = {};
    if (GetGeoInfoW(GetUserGeoID(GEOCLASS_NATION), GEO_ISO2, place, kCountryUnits, 0) == kCountryUnits)
        return CodeOf(place);
    wchar_t country[kCountryUnits] = {};
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SISO3166CTRYNAME, country, kCountryUnits);
    return CodeOf(country);
}

std::string SortKey(std::string_view locale, std::u16string_view text) {
    std::u16string name(locale.begin(), locale.end());
    std::ranges::replace(name, u'_', u'-');
    const std::u16string source(text);
    const auto map = [&](std::string& key) {
        return LCMapStringEx(Wide(name.c_str()), LCMAP_SORTKEY | LINGUISTIC_IGNORECASE, Wide(source.c_str()),
                             static_cast<int>(source.size()), reinterpret_cast<wchar_t*>(key.data()),
                             static_cast<int>(key.size()), nullptr, nullptr, 0);
    };
    std::string key;
    if (text.empty()) return key;
    key.resize(static_cast<std::size_t>(std::max(0, map(key))));
    if (key.empty() || map(key) != static_cast<int>(key.size())) return KeyOfUnits(text);
    return key;
}

} // namespace brixen::pvn::pvn_workflow::platform
