#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace brixen::lyr::gen {

inline constexpr std::string_view kLineEnd = "\r\n"; // behind what is put on a line of its own

// A text in pieces, which is put together only where it goes. The pieces are borrowed. Private to the markup
// document.
class MarkupPieces {
public:
    MarkupPieces() = default;
    MarkupPieces(std::string_view text) { Add(text); }
    MarkupPieces(std::initializer_list<std::string_view> pieces) {
        for (const std::string_view piece : pieces) Add(piece);
    }

    void Add(std::string_view piece) {
        fPieces[fCount++] = {piece.data(), piece.size()};
        fLength += piece.size();
    }
    void Add(const MarkupPieces& other) {
        for (std::size_t i = 0; i < other.fCount; ++i) fPieces[fCount++] = other.fPieces[i];
        fLength += other.fLength;
    }
    std::size_t Length() const { return fLength; }
    void CopyTo(char* out) const {
        for (std::size_t i = 0; i < fCount; ++i) {
            CopyPiece(out, fPieces[i].bytes, fPieces[i].length);
            out += fPieces[i].length;
        }
    }

private:
    // An element inside of an element that has to be opened for it.
    static constexpr std::size_t kMost = 14;

    struct Piece {
        const char* bytes;
        std::size_t length;
    };

    // Most pieces are too short for a call.
    static void CopyPiece(char* out, const char* bytes, std::size_t length) {
        if (length > 16) {
            std::memcpy(out, bytes, length);
        } else if (length >= 8) {
            CopyEnds<std::uint64_t>(out, bytes, length);
        } else if (length >= 4) {
            CopyEnds<std::uint32_t>(out, bytes, length);
        } else if (length >= 2) {
            CopyEnds<std::uint16_t>(out, bytes, length);
        } else if (length == 1) {
            *out = *bytes;
        }
    }
    template <class Word>
    static void CopyEnds(char* out, const char* bytes, std::size_t length) {
        Word first;
        Word last;
        std::memcpy(&first, bytes, sizeof first);
        std::memcpy(&last, bytes + length - sizeof last, sizeof last);
        std::memcpy(out, &first, sizeof first);
        std::memcpy(out + length - sizeof last, &last, sizeof last);
    }

    Piece fPieces[kMost]; // only the first ones hold anything
    std::size_t fCount = 0;
    std::size_t fLength = 0;
};

} // namespace brixen::lyr::gen
