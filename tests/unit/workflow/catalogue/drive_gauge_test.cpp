#include "workflow/catalogue/drive_gauge.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::pvn::pvn_workflow {
namespace {

constexpr std::uint64_t kMB = 1ull << 20, kGB = 1ull << 30, kTB = 1ull << 40;

std::string Shown(std::uint64_t total, std::uint64_t free) {
    const DriveGauge gauge = GaugeOfDrive({total, free});
    const std::string unit = gauge.unitKey;
    return std::to_string(gauge.used) + "/" + std::to_string(gauge.total) + unit.substr(unit.rfind('/'));
}

TEST(GaugeOfDrive, CountsInTheLargestUnitOfWhichThereAreSome) {
    EXPECT_EQ(Shown(500 * kGB, 200 * kGB), "300/500/gib");
    EXPECT_EQ(Shown(16 * kGB, 6 * kGB), "10/16/gib");
    EXPECT_EQ(Shown(16 * kGB - 1, 0), "16383/16383/mib");
    EXPECT_EQ(Shown(8 * kGB, kGB), "7168/8192/mib");
    EXPECT_EQ(Shown(2 * kTB, kTB), "1024/2048/gib");
    EXPECT_EQ(Shown(16 * kTB, 15 * kTB), "1/16/tib");
}

TEST(GaugeOfDrive, StaysInSixteenBits) {
    EXPECT_EQ(Shown(65535 * kTB, 0), "65535/65535/tib");
    EXPECT_EQ(Shown(65536 * kTB, 1 * kTB), "65535/65535/tib");
    EXPECT_EQ(Shown(~0ull, ~0ull), "0/65535/tib");
}

TEST(GaugeOfDrive, OfAnOddAnswerIsInItsRange) {
    EXPECT_EQ(Shown(0, 0), "0/0/mib");
    EXPECT_EQ(Shown(0, 5), "0/0/mib");
    EXPECT_EQ(Shown(100 * kMB, 200 * kMB), "0/100/mib") << "more free than there is";
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
