// The worst descriptions of one megabyte that go through real boxes: long texts that are measured in narrow
// lines, long lists, many controls. Some stop just before a budget of the run, so that all of it is made, and
// some ask for more than a budget holds.
#pragma once

#include <span>
#include <string>

namespace bench {

struct HostileView {
    const char* name;
    std::string (*text)();
};

[[nodiscard]] std::span<const HostileView> HostileViews();

} // namespace bench
