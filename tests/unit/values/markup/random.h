// Random documents whose elements all have names of their own.
#pragma once

#include <cstddef>
#include <iterator>
#include <random>
#include <string>

namespace brixen::lyr::gen::markup_test {

inline constexpr const char* kAttributes[] = {"x", "y", "long-name", "n:s"};

// One seed makes the same choices every time.
class RandomMarkup {
public:
    explicit RandomMarkup(unsigned seed) : random(seed) {}

    std::size_t Below(std::size_t limit) { return random() % limit; }
    bool OneIn(std::size_t chances) { return Below(chances) == 0; }
    template <class List>
    auto Any(const List& list) {
        return list[Below(std::size(list))];
    }
    std::string NewName() { return "e" + std::to_string(++names); }
    std::string RandomDocument() {
        static constexpr const char* kFronts[] = {"", "<?xml version=\"1.0\"?>\r\n", "<!--c-->", "text ",
                                                  "\n<!D a>"};
        static constexpr const char* kTails[] = {"", "\n", " tail", "<!--end-->\n"};
        return Any(kFronts) + RandomElement(3) + Any(kTails);
    }

private:
    std::string RandomAttributes() {
        std::string text;
        for (const char* const name : kAttributes) {
            if (OneIn(4))
                text += (OneIn(2) ? " " : "\n\t") + std::string(name) + (OneIn(2) ? "='1'" : " = \"22 3\"");
        }
        if (OneIn(12)) text += " bare=1";
        return OneIn(6) ? text + " " : text;
    }
    std::string RandomContent(int depth) {
        static constexpr const char* kFilling[] = {
            "",       " ",         "text", "\n  ", "<!--c-->", "<![CDATA[<x>]]>", "it's", "<?go x='1'?>",
            " a\"b ", "<!D [ > ]>"};
        std::string text = Any(kFilling);
        for (std::size_t children = depth > 0 ? Below(4) : 0; children > 0; --children) {
            text += RandomElement(depth - 1) + Any(kFilling) + Any(kFilling);
        }
        return text;
    }
    std::string RandomElement(int depth) {
        const std::string name = NewName();
        const std::string start = "<" + name + RandomAttributes();
        if (OneIn(3)) return start + "/>";
        // A value that seems to end the tag is no place for edits, and what follows it is content.
        const char* const cut = OneIn(20) ? " cut='a>b'" : "";
        return start + cut + ">" + RandomContent(depth) + (OneIn(8) ? "</ " : "</") + name +
               (OneIn(8) ? "\n>" : ">");
    }

    std::mt19937 random;
    int names = 0;
};

} // namespace brixen::lyr::gen::markup_test
