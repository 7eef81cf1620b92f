#include "values/text_pieces.h"

#include "values/legal_text.h"
#include "values/text_conversion.h"

#include <array>

namespace brixen::lyr::gen {
namespace {

using namespace legal_text;

// Room for what the quick roads leave behind: less than they would go on with.
constexpr std::ptrdiff_t kCareful = 12;
static_assert(kCareful < legal_text::kQuickUnits && kCareful < legal_text::kQuickBytes);

} // namespace

std::string Utf8InPieces(std::u16string_view wide, bool lenient) {
    const char16_t* source = wide.data();
    const char16_t* const end = source + wide.size();
    std::array<Byte, kPiece> piece;
    std::string result;
    result.reserve(Utf8Length(wide));
    while (source != end) {
        auto came = QuickUtf16ToUtf8(source, end, piece.data(), piece.data() + piece.size());
        if (came.source == source) {
            came = Utf16RangeToUtf8(source, end, piece.data(), piece.data() + kCareful, lenient);
        }
        result.append(reinterpret_cast<const char*>(piece.data()),
                      static_cast<std::size_t>(came.target - piece.data()));
        source = came.source;
    }
    return result;
}

std::u16string Utf16InPieces(std::string_view narrow, bool lenient) {
    const Byte* source = reinterpret_cast<const Byte*>(narrow.data());
    const Byte* const end = source + narrow.size();
    std::array<char16_t, kPiece> piece;
    std::u16string result;
    result.reserve(Utf16Length(narrow));
    while (source != end) {
        auto came = QuickUtf8ToUtf16(source, end, piece.data(), piece.data() + piece.size());
        if (came.source == source) {
            came = Utf8RangeToUtf16(source, end, piece.data(), piece.data() + kCareful, lenient);
        }
        // It ends inside a sequence.
        if (came.source == source) throw illegal_utf_sequence("Bad UTF-8 sequence.");
        result.append(piece.data(), came.target);
        source = came.source;
    }
    return result;
}

} // namespace brixen::lyr::gen
