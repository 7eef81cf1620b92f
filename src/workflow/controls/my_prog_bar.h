// A gauge that shows how much of a range is used: a window class of its own, MyProgBar. Its numbers belong to
// the process, so there is one gauge at a time. Belongs to the thread of the dialog.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/platform/toolkit_platform.h"

#include <cstddef>
#include <cstdint>

namespace brixen::pvn::pvn_workflow {

inline constexpr char16_t kMyProgBarClass[] = u"MyProgBar";

// Messages to a gauge. The numbers are in lparam.
inline constexpr std::uint32_t kGaugeSetRange = 1025; // the end in the low word, the start in the high word
inline constexpr std::uint32_t kGaugeSetPosition = 1026;

// The record of SetGaugeCaption.
struct GaugeCaption {
    static constexpr std::size_t kCopiedUnits = 256;
    char16_t text[512] = {};   // of which the first 512 bytes count
    std::uint32_t percent = 0; // where the caption begins, of the width; 0.76 of it outside 1 to 100
};
static_assert(offsetof(GaugeCaption, percent) == 1024);

// Registers the class, once, and makes a gauge in a dialog. Returns null if the system refuses either.
[[nodiscard]] zeve::NativeWindow MakeGauge(zeve::NativeWindow dialog, std::uint16_t id,
                                           const zeve::platform::Rectangle& place);
// Sets what is shown after the number of the range's end; nothing for an empty text. Shows at the next paint.
void SetGaugeCaption(const GaugeCaption& record) noexcept;

// The numbers of the process, for tests.
struct GaugeData {
    std::uint32_t range = 0;
    std::int32_t position = 0;
    char16_t caption[GaugeCaption::kCopiedUnits + 1] = {};
    std::uint32_t captionShift = 0;
};
GaugeData& TheGaugeData() noexcept;

} // namespace brixen::pvn::pvn_workflow
