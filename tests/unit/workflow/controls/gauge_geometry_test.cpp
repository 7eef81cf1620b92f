#include "workflow/controls/gauge_geometry.h"

#include "unit/workflow/controls/pixels.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace brixen::pvn::pvn_workflow {
namespace {

using zeve::platform::Rectangle;

constexpr Rectangle kClient{0, 0, 200, 40};
constexpr std::int32_t kDigit = 6;

GaugeGeometry Gauge(std::int32_t start, std::int32_t end, std::int32_t position, std::uint32_t shift = 90) {
    return LayOutGauge(kClient, kDigit, {start, end, position, shift});
}

TEST(GaugeGeometry, TheBarLiesBelowItsTextsAndTicks) {
    const GaugeGeometry gauge = Gauge(0, 100, 50);
    EXPECT_EQ(gauge.bar, (Rectangle{6, 19, 177, 39})); // 200 - 20 - 3
    EXPECT_EQ(gauge.startTick, (Rectangle{6, 14, 7, 17}));
    EXPECT_EQ(gauge.endTick, (Rectangle{176, 14, 177, 17}));
    EXPECT_EQ(gauge.endTextLeft, 180);
}

TEST(GaugeGeometry, TheShiftIsAPercentageOfTheWidth) {
    EXPECT_EQ(Gauge(0, 1, 0, 100).endTextLeft, 200);
    EXPECT_EQ(Gauge(0, 1, 0, 1).endTextLeft, 2);
    EXPECT_EQ(Gauge(0, 1, 0, 50).endTextLeft, 100);
    for (const std::uint32_t outside : {0u, 101u, 0xFFFFFFFFu, 0x80000000u}) {
        EXPECT_EQ(Gauge(0, 1, 0, outside).endTextLeft, 152) << outside; // 200 - 48
    }
}

TEST(GaugeGeometry, APlaceInTheClientAreaCountsFromItsCorner) {
    const GaugeGeometry gauge = LayOutGauge({10, 100, 210, 140}, kDigit, {0, 100, 50, 90});
    EXPECT_EQ(gauge.bar, (Rectangle{16, 119, 187, 139}));
    EXPECT_EQ(gauge.startTick, (Rectangle{16, 114, 17, 117}));
    EXPECT_EQ(gauge.endTextLeft, 190);
}

TEST(GaugeGeometry, ThePositionSplitsTheBar) {
    const GaugeGeometry gauge = Gauge(0, 100, 40);
    // 6 + 40 × 171 / 100
    EXPECT_EQ(gauge.before, (Rectangle{8, 21, 74, 37}));
    EXPECT_EQ(gauge.after, (Rectangle{76, 21, 175, 37}));
}

TEST(GaugeGeometry, ARangeMayRunBackwards) {
    const GaugeGeometry gauge = Gauge(100, 0, 60);
    EXPECT_EQ(gauge.before.right, 74);
    EXPECT_EQ(gauge.afterColor, kGaugeFree);
}

TEST(GaugeGeometry, TheColorGoesByTheUsedPercent) {
    EXPECT_EQ(Gauge(0, 100, 0).afterColor, kGaugeFree);
    EXPECT_EQ(Gauge(0, 100, 49).afterColor, kGaugeFree);
    EXPECT_EQ(Gauge(0, 100, 50).afterColor, kGaugeFilling);
    EXPECT_EQ(Gauge(0, 100, 80).afterColor, kGaugeFilling);
    EXPECT_EQ(Gauge(0, 100, 81).afterColor, kGaugeFull);
    EXPECT_EQ(Gauge(0, 1000, 809).afterColor, kGaugeFilling) << "rounded down";
    EXPECT_EQ(kGaugeFull, 1381883u);
    EXPECT_EQ(kGaugeFilling, 1440763u);
    EXPECT_EQ(kGaugeFree, 1440533u);
}

TEST(GaugeGeometry, AnEmptyRangeFillsNothing) {
    const GaugeGeometry gauge = Gauge(7, 7, 7);
    EXPECT_EQ(gauge.before, Rectangle{});
    EXPECT_EQ(gauge.after, Rectangle{});
    EXPECT_EQ(gauge.bar.right, 177) << "the bar is there";
}

TEST(GaugeGeometry, AtTheStartTheEdgesOfTheFirstAreaCross) {
    const GaugeGeometry gauge = Gauge(0, 100, 0);
    EXPECT_EQ(gauge.before, (Rectangle{6, 21, 8, 37}));
    EXPECT_EQ(gauge.after, (Rectangle{8, 21, 175, 37}));
}

TEST(GaugeGeometry, AtTheEndTheSecondAreaBegins3PixelsFurtherLeft) {
    const GaugeGeometry full = Gauge(0, 100, 100);
    EXPECT_EQ(full.before, (Rectangle{8, 21, 177, 37}));
    EXPECT_EQ(full.after, (Rectangle{175, 21, 176, 37})) << "from 176 to 175";
    EXPECT_EQ(full.afterColor, kGaugeFull);
    const GaugeGeometry almost = Gauge(0, 1000, 996);
    EXPECT_EQ(almost.before.right, 176); // 6 + 996 × 171 / 1000
    EXPECT_EQ(almost.after, (Rectangle{175, 21, 178, 37})) << "from 178 to 175";
    EXPECT_EQ(Gauge(0, 1000, 980).after, Rectangle{}) << "from 175 to 175";
}

TEST(GaugeGeometry, APositionOutsideTheRangeCountsAsItsEnd) {
    for (const std::int32_t position : {101, 5000, INT32_MAX}) {
        const GaugeGeometry gauge = Gauge(0, 100, position);
        EXPECT_EQ(gauge.before, (Rectangle{8, 21, 177, 37})) << position;
        EXPECT_EQ(gauge.after, (Rectangle{175, 21, 176, 37})) << position;
    }
    EXPECT_EQ(Gauge(65535, 65534, 0).before.right, 177);
}

TEST(GaugeGeometry, AnAreaTooSmallForABarFillsNothing) {
    for (const Rectangle& client :
         {Rectangle{0, 0, 0, 0}, Rectangle{0, 0, 5, 40}, Rectangle{0, 0, 200, 22}}) {
        const GaugeGeometry gauge = LayOutGauge(client, kDigit, {0, 100, 50, 0});
        EXPECT_EQ(gauge.before, Rectangle{});
        EXPECT_EQ(gauge.after, Rectangle{});
    }
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
