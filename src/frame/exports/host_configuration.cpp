#include "frame/exports/host_configuration.h"

#include "frame/shipped_languages.h"
#include "values/unicode/character_borders.h"

#include <algorithm>
#include <iterator>

namespace brixen::pvn {
namespace {

constexpr std::string_view kFallbackLocale = "en_US";

std::string LanguageText(LanguageIdentifier language) {
    char name[kLocaleNameSize];
    GetLocaleName(language, name);
    std::string text = name;
    std::ranges::replace(text, '-', '_');
    return text;
}

// Copies what fits with a terminator, and never a part of a UTF-8 character.
void CopyCut(std::string_view text, std::span<char> field) noexcept {
    *std::ranges::copy(lyr::gen::CutToBytes(text, field.size() - 1), field.begin()).out = '\0';
}

} // namespace

std::string GetHostLanguage(std::uint32_t hostOptions) {
    const auto chosen = static_cast<LanguageIdentifier>(hostOptions >> 16);
    std::string text = LanguageText(chosen);
    if (text.empty()) text = LanguageText(ThreadLanguage());
    return text.empty() ? std::string(kFallbackLocale) : text;
}

bool FindHostLocale(std::string_view language, bool fallback,
                    std::span<char, kHostLocaleSize> locale) noexcept {
    const std::string_view wanted = fallback ? kFallbackLocale : language;
    const ShippedLanguage* const found = FindShippedLanguage(wanted);
    CopyCut(found ? found->locale : std::string_view(), locale);
    return found != nullptr;
}

void GetHostDisplayName(std::span<char, kHostDisplayNameSize> name) {
    const HostProgram host = DescribeHostProgram();
    const std::string* const inOrder[] = {&host.productName, &host.fileDescription, &host.fileName};
    const auto first = std::ranges::find_if(inOrder, [](const std::string* text) { return !text->empty(); });
    CopyCut(first == std::end(inOrder) ? std::string_view() : **first, name);
}

void RefreshHostStrings(PavaneContext& context, std::string_view language) {
    context.localeIsFallback = 0;
    if (!FindHostLocale(language, false, context.hostLocale))
        context.localeIsFallback = FindHostLocale(language, true, context.hostLocale);
    GetHostDisplayName(context.hostDisplayName);
}

} // namespace brixen::pvn
