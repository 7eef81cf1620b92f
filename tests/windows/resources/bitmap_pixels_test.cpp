// The pixels of decoded bitmaps: depth, order and alpha, as the painting code expects them.
#include "workflow/platform/resource_platform.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <vector>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

std::filesystem::path Picture(const char* name) {
    return std::filesystem::path(PAVANE_TEST_DATA) / "bitmaps" / name;
}

class BitmapPixels : public testing::Test {
protected:
    BitmapPixels() { EXPECT_TRUE(StartDecoder()); }
    ~BitmapPixels() override {
        DeleteBitmap(bitmap);
        StopDecoder();
    }

    DIBSECTION Load(const char* name) {
        bitmap = DecodeBitmap(Picture(name).u16string().c_str()).bitmap;
        DIBSECTION section{};
        EXPECT_EQ(GetObjectW(reinterpret_cast<HBITMAP>(bitmap), sizeof section, &section),
                  int{sizeof section});
        return section;
    }

    static std::vector<unsigned char> Bytes(const DIBSECTION& section) {
        const auto* bits = static_cast<const unsigned char*>(section.dsBm.bmBits);
        return {bits, bits + section.dsBm.bmWidthBytes * section.dsBm.bmHeight};
    }

    zeve::NativeBitmap bitmap = nullptr;
};

} // namespace

TEST_F(BitmapPixels, WithoutAlphaIs24BitsBottomRowFirst) {
    const DIBSECTION section = Load("rgb.png");
    EXPECT_EQ(section.dsBm.bmBitsPixel, 24);
    EXPECT_EQ(section.dsBm.bmWidth, 3);
    EXPECT_EQ(section.dsBmih.biHeight, 2);
    EXPECT_EQ(section.dsBm.bmWidthBytes, 12);
    const std::vector<unsigned char> expected = {255, 255, 255, 0, 0,   0, 3,   2, 1, 0, 0, 0,  // lower row
                                                 0,   0,   255, 0, 255, 0, 255, 0, 0, 0, 0, 0}; // upper row
    std::vector<unsigned char> bytes = Bytes(section);
    for (const std::size_t rowEnd : {std::size_t{9}, std::size_t{21}})
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(rowEnd), 3, static_cast<unsigned char>(0));
    EXPECT_EQ(bytes, expected);
}

TEST_F(BitmapPixels, WithAlphaIs32BitsOfStraightAlpha) {
    const DIBSECTION section = Load("rgba.png");
    EXPECT_EQ(section.dsBm.bmBitsPixel, 32);
    EXPECT_EQ(section.dsBm.bmWidth, 3);
    EXPECT_EQ(section.dsBmih.biHeight, 2);
    const std::vector<unsigned char> expected = {255, 255, 255, 64,  0, 0,   0, 1,   3,   2, 1, 200,
                                                 0,   0,   255, 255, 0, 255, 0, 128, 255, 0, 0, 0};
    EXPECT_EQ(Bytes(section), expected);
}

TEST_F(BitmapPixels, APaletteWithoutAlphaIs24Bits) {
    EXPECT_EQ(Load("palette.png").dsBm.bmBitsPixel, 24);
    HDC screen = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = SelectObject(screen, reinterpret_cast<HBITMAP>(bitmap));
    EXPECT_EQ(GetPixel(screen, 0, 0), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(screen, 2, 1), RGB(1, 2, 3));
    SelectObject(screen, old);
    DeleteDC(screen);
}

TEST_F(BitmapPixels, APictureOfTooManyPixelsFails) {
    const auto decode = [](const char* name) { return DecodeBitmap(Picture(name).u16string().c_str()); };
    EXPECT_EQ(decode("huge.png").bitmap, nullptr) << "4097 by 4096";
    EXPECT_EQ(decode("huge.png").code, 0x80004005u);
    bitmap = decode("large.png").bitmap;
    EXPECT_NE(bitmap, nullptr) << "4096 by 4096";
}

TEST_F(BitmapPixels, APictureLargerThanMemoryFails) {
    const DecodedBitmap decoded = DecodeBitmap(Picture("vast.png").u16string().c_str());
    EXPECT_EQ(decoded.bitmap, nullptr);
    EXPECT_EQ(decoded.code, 0x80004005u);
}

TEST_F(BitmapPixels, DeletingABitmapFreesItsHandle) {
    Load("rgb.png");
    const auto handle = reinterpret_cast<HBITMAP>(bitmap);
    DeleteBitmap(bitmap);
    bitmap = nullptr;
    EXPECT_EQ(GetObjectType(handle), 0u);
}

} // namespace brixen::pvn::pvn_workflow::platform
