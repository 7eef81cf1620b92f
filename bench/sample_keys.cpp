#include "bench/sample_keys.h"

namespace bench {
namespace {

std::string Padded(std::size_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    return text.insert(0, digits > text.size() ? digits - text.size() : 0, '0');
}

} // namespace

std::string PaddedKey(std::size_t number) {
    return "/app/pane_" + Padded(number / 400, 3) + "/section_" + Padded(number / 20 % 20, 2) + "/control_" +
           Padded(number % 20, 2) + "/title";
}

std::string NaturalKey(std::size_t number) {
    static constexpr const char* kWords[] = {"welcome", "license", "account", "serial",
                                             "finish",  "network", "proxy"};
    static constexpr const char* kParts[] = {"title", "description", "button/next", "error/empty", "hint"};
    return std::string("/brixen/pvn/") + kWords[number % 7] + "/" + kParts[number / 7 % 5] + "/" +
           std::to_string(number / 35);
}

} // namespace bench
