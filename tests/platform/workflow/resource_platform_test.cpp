// The resource platform: the same tests for the native twin and for Windows.
#include "workflow/platform/resource_platform.h"

#include "support/resource_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

std::filesystem::path Picture(const std::string& name) {
    return std::filesystem::path(PAVANE_TEST_DATA) / "bitmaps" / name;
}

DecodedBitmap Decode(const std::filesystem::path& path) { return DecodeBitmap(path.u16string().c_str()); }

class Decoder : public testing::Test {
protected:
    Decoder() { EXPECT_TRUE(StartDecoder()); }
    ~Decoder() override { StopDecoder(); }
};

} // namespace

TEST(ResourcePlatform, TheLibraryFolderHoldsTheRunningFile) {
    const std::u16string folder = LibraryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    EXPECT_TRUE(std::filesystem::is_directory(folder + u"/PVResources")) << "it is built beside the program";
    EXPECT_NE(folder.back(), u'/');
    EXPECT_NE(folder.back(), u'\\');
}

TEST_F(Decoder, DecodesEachFormatOfPixels) {
    for (const char* name : {"rgb.png", "rgba.png", "palette.png"}) {
        const DecodedBitmap decoded = Decode(Picture(name));
        EXPECT_NE(decoded.bitmap, nullptr) << name;
        EXPECT_EQ(decoded.code, 0u) << name;
        DeleteBitmap(decoded.bitmap);
    }
}

TEST_F(Decoder, EveryDecodingMakesABitmapOfItsOwn) {
    const DecodedBitmap one = Decode(Picture("rgb.png"));
    const DecodedBitmap two = Decode(Picture("rgb.png"));
    EXPECT_NE(one.bitmap, two.bitmap);
    DeleteBitmap(one.bitmap);
    DeleteBitmap(two.bitmap);
}

TEST_F(Decoder, FailsForAFileThatIsNoPicture) {
    for (const char* name :
         {"text.png", "empty.png", "signature_only.png", "cut_in_header.png", "absent.png"}) {
        const DecodedBitmap decoded = Decode(Picture(name));
        EXPECT_EQ(decoded.bitmap, nullptr) << name;
        EXPECT_EQ(decoded.code, 0x80004005u) << name;
    }
}

TEST_F(Decoder, OpensFilesInAFolderOutsideTheCodePage) {
    const pavane_test::ResourceFolder folder(u"\u05E9\u05DC\u05D5\u05DD-\u65E5\u672C-\u0E17");
    folder.Copy("picture.png", Picture("rgb.png"));
    const DecodedBitmap decoded = Decode(folder.PathOf("picture.png"));
    EXPECT_NE(decoded.bitmap, nullptr);
    DeleteBitmap(decoded.bitmap);
}

TEST_F(Decoder, ClosesTheFile) {
    const pavane_test::ResourceFolder folder;
    folder.Copy("picture.png", Picture("rgb.png"));
    const DecodedBitmap decoded = Decode(folder.PathOf("picture.png"));
    EXPECT_TRUE(folder.Remove("picture.png"));
    DeleteBitmap(decoded.bitmap);
}

TEST_F(Decoder, DeletingNullIsHarmless) { DeleteBitmap(nullptr); }

} // namespace brixen::pvn::pvn_workflow::platform
