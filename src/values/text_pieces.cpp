#include "values/text_pieces.h"

#include "values/legal_text.h"

#include <array>

namespace brixen::lyr::gen {
namespace {

using namespace legal_text;

// Room for what the quick roads leave behind: less than they would go on with.
constexpr std::ptrdiff_t kCareful = 12;
static_assert(kCareful < legal_text::kQuickUnits && kCareful < legal_text::kQuickBytes);

} // namespace

std::string Utf8InPieces(std::u16string_view wide, bool lenient,
                         CarefulStep<char16_t, std::uint8_t> careful) {
    const char16_t* source = wide.data();
    const char16_t* const end = source + wide.size();
    std::array<Byte, kPiece> piece;
    std::string result;
    result.reserve(Utf8Length(wide));
    while (source != end) {
        auto came = QuickUtf16ToUtf8(source, end, piece.data(), piece.data() + piece.size());
        if (came.source == source) {
            came = careful(source, end, piece.data(), piece.data() + kCareful, lenient);
        }
        result.append(reinterpret_cast<const char*>(piece.data()),
                      static_cast<std::size_t>(came.target - piece.data()));
        source = came.source;
    }
    return result;
}

std::u16string Utf16InPieces(std::string_view narrow, bool lenient,
                             CarefulStep<std::uint8_t, char16_t> careful) {
    const Byte* source = reinterpret_cast<const Byte*>(narrow.data());
    const Byte* const end = source + narrow.size();
    std::array<char16_t, kPiece> piece;
    std::u16string result;
    result.reserve(Utf16Length(narrow));
    while (source != end) {
        auto came = QuickUtf8ToUtf16(source, end, piece.data(), piece.data() + piece.size());
        if (came.source == source) {
            came = careful(source, end, piece.data(), piece.data() + kCareful, lenient);
        }
        result.append(piece.data(), came.target);
        source = came.source;
    }
    return result;
}

} // namespace brixen::lyr::gen
