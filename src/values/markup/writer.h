// Writes one text after the other into room that was made for them. Private to the markup document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace brixen::lyr::gen {

inline constexpr std::string_view kLineEnd = "\r\n"; // after markup on a line of its own

// The room must hold all that is put; nothing is checked.
class MarkupWriter {
public:
    explicit MarkupWriter(char* out) : out(out) {}

    template <std::size_t size>
    void PutLiteral(const char (&text)[size]) {
        std::memcpy(out, text, size - 1);
        out += size - 1;
    }
    // Most texts are too short to be worth a call: their first and last bytes are copied, which may overlap.
    void Put(std::string_view text) {
        const std::size_t length = text.size();
        if (length > 2 * sizeof(Block)) {
            std::memcpy(out, text.data(), length);
        } else if (length >= sizeof(Block)) {
            PutEnds<Block>(text);
        } else if (length >= sizeof(std::uint64_t)) {
            PutEnds<std::uint64_t>(text);
        } else if (length >= sizeof(std::uint32_t)) {
            PutEnds<std::uint32_t>(text);
        } else if (length > 0) {
            out[0] = text[0];
            out[length / 2] = text[length / 2];
            out[length - 1] = text[length - 1];
        }
        out += length;
    }
    // The place of the next text, for a caller that writes it itself and then calls Skip.
    char* At() const { return out; }
    void Skip(std::size_t length) { out += length; }

private:
    struct Block {
        char bytes[16];
    };

    template <class Word>
    void PutEnds(std::string_view text) {
        Word first;
        Word last;
        const std::size_t rest = text.size() - sizeof last;
        std::memcpy(&first, text.data(), sizeof first);
        std::memcpy(&last, text.data() + rest, sizeof last);
        std::memcpy(out, &first, sizeof first);
        std::memcpy(out + rest, &last, sizeof last);
    }

    char* out;
};

} // namespace brixen::lyr::gen
