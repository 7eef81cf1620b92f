// A second, slow layout to compare the real one with: names instead of fields, one rule after the other as
// they are put into words, nothing shared with src/.
#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <string>

namespace brixen::zeve {

struct OracleView {
    std::string keyword;
    std::map<std::string, std::int64_t> given; // the parameters of the head
    std::list<OracleView> children;

    // The result, by the names of the final attributes.
    std::map<std::string, std::int64_t> value;
    bool hasLabel = false, offscreen = false;
};

// Fills `value` in the whole tree and puts reversed children in their order. `space` is the default spacing.
void LayOutByTheRules(OracleView& root, bool rightToLeft, std::int64_t space);

// The description of the tree, to be run with the same `space` defined as gSpace.
std::string DescriptionOf(const OracleView& view);

} // namespace brixen::zeve
