// The dialogs that the benchmarks read and lay out: sections of rows of labeled controls, six attributes a
// view.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

// Return the same tree of exactly `nodeCount` views, as a description, and as a Lua chunk that returns table
// constructors.
std::string SampleDescription(std::size_t nodeCount);
std::string SampleLuaChunk(std::size_t nodeCount);

// The chunk that defines in Lua the constants that a dialog defines before its description runs.
extern const char* const kSampleLuaConstants;
inline constexpr int kSampleSpace = 6; // gSpace

} // namespace bench
