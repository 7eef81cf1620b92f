#include "values/unicode/text_conversion.h"

#include "values/unicode/well_formed_text.h"

#include <array>

// A text that is short and legal all through takes one step; any other goes in pieces, each by the quick road
// as far as that leads, and one careful step where it ends.
namespace brixen::lyr::gen {
namespace {

using namespace legal_text;

constexpr std::size_t kPiece = 256; // bytes or units that are converted at a time
// Room for a careful step: at least one character, and less than the quick roads would go on with.
constexpr std::ptrdiff_t kCareful = 12;
static_assert(kCareful < kQuickUnits && kCareful < kQuickBytes);

const Byte* BytesOf(std::string_view narrow) { return reinterpret_cast<const Byte*>(narrow.data()); }
const char* CharsOf(const Byte* bytes) { return reinterpret_cast<const char*>(bytes); }

std::string ToUtf8InPieces(std::u16string_view wide, bool lenient) {
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
        result.append(CharsOf(piece.data()), CharsOf(came.target));
        source = came.source;
    }
    return result;
}

std::u16string ToUtf16InPieces(std::string_view narrow, bool lenient) {
    const Byte* source = BytesOf(narrow);
    const Byte* const end = source + narrow.size();
    std::array<char16_t, kPiece> piece;
    std::u16string result;
    result.reserve(Utf16Length(narrow));
    while (source != end) {
        auto came = QuickUtf8ToUtf16(source, end, piece.data(), piece.data() + piece.size());
        if (came.source == source) {
            came = Utf8RangeToUtf16(source, end, piece.data(), piece.data() + kCareful, lenient);
            // The range converter leaves a sequence that the text cuts short to its caller.
            if (came.source == source) throw illegal_utf_sequence("Bad UTF-8 sequence.");
        }
        result.append(piece.data(), came.target);
        source = came.source;
    }
    return result;
}

} // namespace

std::string ToUtf8(std::u16string_view wide, bool lenient) {
    const char16_t* const end = wide.data() + wide.size();
    std::array<Byte, kPiece> piece;
    const auto came = QuickUtf16ToUtf8(wide.data(), end, piece.data(), piece.data() + piece.size());
    if (came.source != end) return ToUtf8InPieces(wide, lenient);
    return {CharsOf(piece.data()), CharsOf(came.target)};
}

std::u16string ToUtf16(std::string_view narrow, bool lenient) {
    const Byte* const end = BytesOf(narrow) + narrow.size();
    std::array<char16_t, kPiece> piece;
    const auto came = QuickUtf8ToUtf16(BytesOf(narrow), end, piece.data(), piece.data() + piece.size());
    if (came.source != end) return ToUtf16InPieces(narrow, lenient);
    return {piece.data(), came.target};
}

} // namespace brixen::lyr::gen
