// Streams that a dictionary may be read from. The library itself reads dictionaries from memory alone.
#pragma once

#include "values/platform/values_platform.h"

#include <istream>
#include <sstream>
#include <string>
#include <string_view>

namespace kestrel {

// A file, read as a whole by the constructor. A file that cannot be read leaves the stream failed.
template <class Char, class Traits = std::char_traits<Char>>
class basic_ifstream : public std::basic_istream<Char, Traits> {
public:
    explicit basic_ifstream(const std::u16string& path) : std::basic_istream<Char, Traits>(nullptr) {
        const auto bytes = brixen::lyr::gen::ReadWholeFile(path);
        isOpen = bytes.has_value();
        if (isOpen) buffer.str(std::basic_string<Char, Traits>(bytes->begin(), bytes->end()));
        this->rdbuf(&buffer);
        if (!isOpen) this->setstate(std::ios_base::failbit);
    }
    bool is_open() const { return isOpen; }

private:
    std::basic_stringbuf<Char, Traits> buffer{std::ios_base::in};
    bool isOpen = false;
};

// A resource. The stream is failed until `open` gets a copy of the bytes.
template <class Char, class Traits = std::char_traits<Char>>
class basic_irstream : public std::basic_istream<Char, Traits> {
public:
    basic_irstream() : std::basic_istream<Char, Traits>(nullptr) {
        this->rdbuf(&buffer);
        this->setstate(std::ios_base::failbit);
    }
    void open(std::basic_string_view<Char, Traits> resource) {
        buffer.str(std::basic_string<Char, Traits>(resource));
        isOpen = true;
        this->clear();
    }
    bool is_open() const { return isOpen; }

private:
    std::basic_stringbuf<Char, Traits> buffer{std::ios_base::in};
    bool isOpen = false;
};

} // namespace kestrel
