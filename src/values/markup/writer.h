#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace brixen::lyr::gen {

inline constexpr std::string_view kLineEnd = "\r\n"; // behind what is put on a line of its own

// Writes one text behind the other into room that was made for them. Private to the markup document.
class MarkupWriter {
public:
    explicit MarkupWriter(char* out) : fOut(out) {}

    template <std::size_t size>
    void PutLiteral(const char (&text)[size]) {
        std::memcpy(fOut, text, size - 1);
        fOut += size - 1;
    }
    // Most texts are too short for a call: their first and last bytes are copied, which may overlap.
    void Put(std::string_view text) {
        const std::size_t length = text.size();
        if (length > 2 * sizeof(Block)) {
            std::memcpy(fOut, text.data(), length);
        } else if (length >= sizeof(Block)) {
            PutEnds<Block>(text);
        } else if (length >= sizeof(std::uint64_t)) {
            PutEnds<std::uint64_t>(text);
        } else if (length >= sizeof(std::uint32_t)) {
            PutEnds<std::uint32_t>(text);
        } else if (length > 0) {
            fOut[0] = text[0];
            fOut[length / 2] = text[length / 2];
            fOut[length - 1] = text[length - 1];
        }
        fOut += length;
    }
    // Where the next text goes, for those who write it themselves.
    char* At() const { return fOut; }
    void Skip(std::size_t length) { fOut += length; }

private:
    struct Block {
        char bytes[16];
    };

    template <class Word>
    void PutEnds(std::string_view text) {
        Word first;
        Word last;
        const std::size_t behind = text.size() - sizeof last;
        std::memcpy(&first, text.data(), sizeof first);
        std::memcpy(&last, text.data() + behind, sizeof last);
        std::memcpy(fOut, &first, sizeof first);
        std::memcpy(fOut + behind, &last, sizeof last);
    }

    char* fOut;
};

} // namespace brixen::lyr::gen
