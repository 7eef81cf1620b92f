#include "values/markup/document.h"

#include "values/base64.h"
#include "values/markup/escape.h"
#include "values/markup/tokens.h"
#include "values/narrow_text.h"
#include "values/unicode/lenient_text.h"

#include <utility>

namespace brixen::lyr::gen {

CMarkupSTL::CMarkupSTL(CMarkupSTL&& other) noexcept { Swap(other); }

CMarkupSTL& CMarkupSTL::operator=(const CMarkupSTL& other) {
    CMarkupSTL copy(other);
    Swap(copy);
    return *this;
}

CMarkupSTL& CMarkupSTL::operator=(CMarkupSTL&& other) noexcept {
    CMarkupSTL taken(std::move(other));
    Swap(taken);
    return *this;
}

void CMarkupSTL::Swap(CMarkupSTL& other) noexcept {
    swap(tree, other.tree);
    errorText.swap(other.errorText);
    std::swap(flags, other.flags);
    std::swap(cursor, other.cursor);
    savedPositions.swap(other.savedPositions);
}

void CMarkupSTL::SetDoc(const char* text) { SetDoc(std::string(MarkupText(text))); }

void CMarkupSTL::SetDoc(std::string text) {
    errorText.clear();
    Parse(std::move(text));
}

// Replaces the document and appends the parser's message to the report in `errorText`.
bool CMarkupSTL::Parse(std::string text) {
    std::string report = std::exchange(errorText, {});
    cursor = {};
    savedPositions.clear();
    std::string error;
    const bool found = tree.Parse(std::move(text), error);
    if (GetDoc().empty()) return false; // Kept: without the report.
    if (!report.empty() && !error.empty()) report += ", ";
    errorText = report + error;
    return found;
}

std::string CMarkupSTL::EscapeText(MarkupText text, bool attribute) { return EscapeMarkup(text, attribute); }

std::string CMarkupSTL::UnescapeText(MarkupText text) {
    std::string room;
    return std::string(UnescapedOrSame(MarkupSpan(text), 0, std::ssize(text), room));
}

std::string CMarkupSTL::EncodeBase64(const void* bytes, std::size_t length) {
    return EncodeBase64Wrapped(bytes, length);
}

std::size_t CMarkupSTL::DecodeBase64(MarkupText text, void* out, std::size_t outSize) {
    return DecodeBase64Wrapped(text, out, outSize);
}

std::int32_t CMarkupSTL::EncodeUtf8(char* out, const char16_t* wide, std::int32_t size) {
    return gen::EncodeUtf8(out, wide, size);
}

std::int32_t CMarkupSTL::DecodeUtf8(char16_t* out, const char* utf8, std::int32_t length) {
    return gen::DecodeUtf8(out, utf8, length);
}

std::string CMarkupSTL::Utf8ToCodePage(MarkupText utf8) { return gen::Utf8ToCodePage(utf8); }

std::string CMarkupSTL::CodePageToUtf8(MarkupText text) { return gen::CodePageToUtf8(text); }

} // namespace brixen::lyr::gen
