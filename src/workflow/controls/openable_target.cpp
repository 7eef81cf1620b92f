#include "workflow/controls/openable_target.h"

#include "values/unicode/ascii.h"
#include "workflow/resources/resource_layer.h"

#include <algorithm>
#include <array>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::array<std::u16string_view, 3> kSchemes = {u"http:", u"https:", u"mailto:"};

bool BeginsWith(std::u16string_view text, std::u16string_view scheme) {
    return text.size() > scheme.size() &&
           std::equal(scheme.begin(), scheme.end(), text.begin(), [](char16_t ofScheme, char16_t unit) {
               return ofScheme == lyr::gen::ToAsciiLower(unit);
           });
}

bool MayBeInAnAddress(char16_t unit) {
    return unit > u' ' && unit < 0x7F && unit != u'"' && unit != u'\'' && unit != u'`';
}

} // namespace

bool IsWebAddress(std::u16string_view address) {
    return std::ranges::any_of(kSchemes, [address](auto scheme) { return BeginsWith(address, scheme); }) &&
           std::ranges::all_of(address, MayBeInAnAddress);
}

bool IsOpenable(const std::u16string& target) { return IsWebAddress(target) || WasPageFound(target); }

} // namespace brixen::pvn::pvn_workflow
