#include "workflow/platform/region.h"

#include <windows.h>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

constexpr int kCountryUnits = 3; // with the terminator

// Of two capital letters; empty for anything else, such as the number of a larger region.
std::string CodeOf(const wchar_t (&text)[kCountryUnits]) {
    const auto isCapital = [](wchar_t unit) { return unit >= L'A' && unit <= L'Z'; };
    if (!isCapital(text[0]) || !isCapital(text[1])) return {};
    return {static_cast<char>(text[0]), static_cast<char>(text[1])};
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

} // namespace brixen::pvn::pvn_workflow::platform
