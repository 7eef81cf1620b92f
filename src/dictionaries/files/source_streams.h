#pragma once

#include "values/platform/values_platform.h"

#include <istream>
#include <sstream>
#include <string>
#include <string_view>

// Streams that a dictionary may be read from. The library itself loads dictionaries from memory only.
namespace kestrel {

// A file by wide path, read at once. A file that cannot be opened leaves the stream failed.
template <class Char, class Traits = std::char_traits<Char>>
class basic_ifstream : public std::basic_istream<Char, Traits> {
public:
    explicit basic_ifstream(const std::u16string& path) : std::basic_istream<Char, Traits>(nullptr) {
        const auto bytes = brixen::lyr::gen::ReadWholeFile(path);
        fOpen = bytes.has_value();
        if (fOpen) fBuffer.str(std::basic_string<Char, Traits>(bytes->begin(), bytes->end()));
        this->rdbuf(&fBuffer);
        if (!fOpen) this->setstate(std::ios_base::failbit);
    }
    bool is_open() const { return fOpen; }

private:
    std::basic_stringbuf<Char, Traits> fBuffer{std::ios_base::in};
    bool fOpen = false;
};

// A resource: bytes that someone found and hands over. Without them the stream is not open.
template <class Char, class Traits = std::char_traits<Char>>
class basic_irstream : public std::basic_istream<Char, Traits> {
public:
    basic_irstream() : std::basic_istream<Char, Traits>(nullptr) {
        this->rdbuf(&fBuffer);
        this->setstate(std::ios_base::failbit);
    }
    void open(std::basic_string_view<Char, Traits> resource) {
        fBuffer.str(std::basic_string<Char, Traits>(resource));
        fOpen = true;
        this->clear();
    }
    bool is_open() const { return fOpen; }

private:
    std::basic_stringbuf<Char, Traits> fBuffer{std::ios_base::in};
    bool fOpen = false;
};

} // namespace kestrel
