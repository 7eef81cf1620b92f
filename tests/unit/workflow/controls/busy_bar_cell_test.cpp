#include "workflow/controls/busy_bar_cell.h"

#include "unit/workflow/controls/pixels.h"

#include <gtest/gtest.h>

#include <numeric>

namespace brixen::pvn::pvn_workflow {
namespace {

using Pixel = std::vector<int>;

class BusyBarCell : public testing::Test {
protected:
    BusyBarCell() { FillBusyCell(cell.Rows(), 0xF3741B); }

    Pixel AlphaOfRow(int y) const {
        Pixel alpha;
        for (int x = 0; x < kBusyCellWidth; ++x) alpha.push_back(cell.At(x, y)[3]);
        return alpha;
    }

    Pixels cell{kBusyCellWidth, kBusyCellHeight, 4, 77};
};

TEST_F(BusyBarCell, HasThreeBlocksWithSoftEdges) {
    EXPECT_EQ(AlphaOfRow(0), (Pixel{203, 188, 185, 184, 188, 204, 0,   0,   219, 210, 209,
                                    208, 209, 219, 0,   0,   255, 255, 255, 255, 255, 255}));
    EXPECT_EQ(AlphaOfRow(3), (Pixel{184, 162, 157, 158, 162, 185, 0,   0,   209, 198, 196,
                                    196, 197, 208, 0,   0,   255, 255, 255, 255, 255, 255}));
    EXPECT_EQ(AlphaOfRow(6), (Pixel{204, 188, 185, 185, 188, 204, 0,   0,   219, 209, 209,
                                    209, 210, 219, 0,   0,   255, 255, 255, 255, 255, 255}));
}

TEST_F(BusyBarCell, HasTheseSumsOfAlphaInItsRows) {
    const int sums[] = {3956, 3763, 3742, 3742, 3744, 3764, 3959};
    for (int y = 0; y < kBusyCellHeight; ++y) {
        const Pixel alpha = AlphaOfRow(y);
        EXPECT_EQ(std::accumulate(alpha.begin(), alpha.end(), 0), sums[y]) << y;
    }
}

TEST_F(BusyBarCell, HasPremultipliedColors) {
    EXPECT_EQ(cell.At(16, 0), (Pixel{0xF3, 0x74, 0x1B, 255}));
    EXPECT_EQ(cell.At(0, 0), (Pixel{193, 92, 21, 203}));
    EXPECT_EQ(cell.At(2, 3), (Pixel{149, 71, 16, 157}));
    EXPECT_EQ(cell.At(6, 0), (Pixel{0, 0, 0, 0}));
}

TEST_F(BusyBarCell, ABitmapOfAnotherSizeStaysAsItIs) {
    for (Pixels other : {Pixels(21, 7, 4, 5), Pixels(22, 8, 4, 5), Pixels(22, 7, 3, 5)}) {
        const auto before = other.Bytes();
        FillBusyCell(other.Rows(), 0xF3741B);
        EXPECT_EQ(other.Bytes(), before);
    }
    FillBusyCell({}, 0xF3741B);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
