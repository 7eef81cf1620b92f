// Thousands of random trees, laid out by the system and by the rules one by one; both must agree on every
// number.
#include "unit/toolkit/layout/layout_fixture.h"
#include "unit/toolkit/layout/layout_oracle.h"

#include <gtest/gtest.h>

#include <random>

namespace brixen::zeve {
namespace {

constexpr std::int64_t kSpace = 6;
constexpr int kTreesPerSeed = 60;

class RandomTrees {
public:
    explicit RandomTrees(std::uint32_t seed) : engine(seed) {}

    OracleView Next() {
        viewCount = 0;
        return View(4);
    }

private:
    std::int64_t Between(std::int64_t least, std::int64_t most) {
        return std::uniform_int_distribution<std::int64_t>(least, most)(engine);
    }
    bool OneIn(int chances) { return Between(1, chances) == 1; }

    OracleView View(int depth) {
        OracleView view;
        view.keyword = "v" + std::to_string(viewCount++);
        if (!OneIn(8)) view.given["width"] = Between(-5, 120);
        if (!OneIn(8)) view.given["height"] = Between(-5, 60);
        for (const char* name : {"horizontal", "vertical", "child_horizontal", "child_vertical"}) {
            if (OneIn(3)) view.given[name] = Between(-1, 6);
        }
        for (const char* name :
             {"inset", "top_inset", "outset", "left_outset", "top_outset", "right_outset", "bottom_outset",
              "spacing", "margin", "margin_width", "margin_height", "margin_left", "margin_top",
              "margin_right", "margin_bottom", "left_offset", "top_offset"}) {
            if (OneIn(6)) view.given[name] = Between(-4, 20);
        }
        if (OneIn(4)) view.given["label_width"] = Between(-3, 70);
        if (OneIn(8)) view.given["reverse"] = Between(0, 1);
        if (OneIn(8)) view.given["alwaysL2R"] = Between(0, 1);
        if (!OneIn(3)) view.given["placement"] = OneIn(12) ? 3 : Between(0, 2);
        const std::int64_t children = depth == 0 || (depth < 4 && OneIn(3)) ? 0 : Between(1, 4);
        for (std::int64_t i = 0; i < children; ++i) view.children.push_back(View(depth - 1));
        return view;
    }

    std::mt19937 engine;
    int viewCount = 0;
};

void ExpectAlike(OracleView& expected, const std::vector<FrameRecorder::View>& views, std::size_t& place) {
    ASSERT_LT(place, views.size());
    const FrameRecorder::View& view = views[place++];
    auto& v = expected.value;
    ASSERT_EQ(view.keyword, expected.keyword);
    EXPECT_EQ(view.frame, (Frame{v["left"], v["top"], v["width"], v["height"]})) << view.keyword;
    EXPECT_EQ(view.outsets,
              (Outsets{v["left_outset"], v["top_outset"], v["right_outset"], v["bottom_outset"]}))
        << view.keyword;
    EXPECT_EQ(view.labelWidth, v["label_width"]) << view.keyword;
    for (OracleView& child : expected.children) ExpectAlike(child, views, place);
}

class RandomLayout : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomLayout, AgreesWithTheRules) {
    RandomTrees trees(GetParam());
    for (int tree = 0; tree < kTreesPerSeed; ++tree) {
        OracleView expected = trees.Next();
        const std::string text = "gSpace = " + std::to_string(kSpace) + ";\n" + DescriptionOf(expected);
        const bool mirrored = tree % 2 == 1;
        LayOutByTheRules(expected, mirrored, kSpace);
        const LaidOut real(text, mirrored);
        std::size_t place = 0;
        ExpectAlike(expected, real.Views(), place);
        EXPECT_EQ(place, real.Views().size());
        ASSERT_FALSE(HasFailure()) << (mirrored ? "mirrored:\n" : "") << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomLayout, testing::Range(1u, 9u));

} // namespace
} // namespace brixen::zeve
