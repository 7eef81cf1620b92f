#include "unit/values/markup/support.h"

#include "support/failing_allocator.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

constexpr std::uint32_t kIsUtf16 = 1;

void Write(const fs::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.good());
}

std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.good()) << path;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// UTF-16, little-endian, after a byte-order mark.
std::string Wide(const std::u16string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

class MarkupFile : public testing::Test {
protected:
    bool Load(const std::string& bytes) {
        Write(path, bytes);
        return markup.Load(path.u16string());
    }
    bool Save() { return markup.Save(path.u16string()); }

    pavane_test::TemporaryFolder folder{u"markup"};
    fs::path path = folder / u"document \u00E4\u3042.xml";
    CMarkupSTL markup;
};

TEST_F(MarkupFile, BytesAreReadAsTheyAre) {
    EXPECT_TRUE(Load("<a>\xC3\xA4\r\n\xFF</a>"));
    EXPECT_EQ(markup.GetDoc(), "<a>\xC3\xA4\r\n\xFF</a>");
    EXPECT_EQ(markup.GetError(), "12 bytes");
    EXPECT_EQ(markup.Flags() & kIsUtf16, 0u);
    EXPECT_TRUE(markup.IsWellFormed());
}

TEST_F(MarkupFile, NulsAndAUtf8MarkStayInTheText) {
    EXPECT_TRUE(Load("\xEF\xBB\xBF<a>\0</a>"s));
    EXPECT_EQ(markup.GetDoc(), "\xEF\xBB\xBF<a>\0</a>"s);
    EXPECT_EQ(markup.GetError(), "11 bytes");
}

TEST_F(MarkupFile, AFileOfAMegabyteIsReadWhole) {
    const std::string text = "<a>" + std::string(1 << 20, 'x') + "</a>";
    EXPECT_TRUE(Load(text));
    EXPECT_EQ(markup.GetDoc(), text);
    EXPECT_EQ(markup.GetError(), "1048583 bytes");
}

TEST_F(MarkupFile, AMarkOfUtf16Converts) {
    EXPECT_TRUE(Load(Wide(u"<a>\u00E4\u3042\U0001F600</a>")));
    EXPECT_EQ(markup.GetDoc(), "<a>\xC3\xA4\xE3\x81\x82\xF0\x9F\x98\x80</a>");
    EXPECT_EQ(markup.GetError(), "BOM + 11 wide chars to 16 bytes");
    EXPECT_EQ(markup.Flags() & kIsUtf16, kIsUtf16);
}

TEST_F(MarkupFile, AnOddByteAfterTheLastUnitIsIgnored) {
    EXPECT_TRUE(Load(Wide(u"<a/>") + "<"));
    EXPECT_EQ(markup.GetDoc(), "<a/>");
    EXPECT_EQ(markup.GetError(), "BOM + 4 wide chars to 4 bytes");
}

TEST_F(MarkupFile, AMarkAloneIsTwoBytesOfText) {
    EXPECT_FALSE(Load("\xFF\xFE"));
    EXPECT_EQ(markup.GetDoc(), "\xFF\xFE");
    EXPECT_EQ(markup.GetError(), "2 bytes, Element tag not found");
    EXPECT_EQ(markup.Flags() & kIsUtf16, 0u);
}

TEST_F(MarkupFile, AMarkAndOneByteIsAnEmptyText) {
    EXPECT_FALSE(Load("\xFF\xFE<"));
    EXPECT_EQ(markup.GetDoc(), "");
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.Flags() & kIsUtf16, kIsUtf16);
}

TEST_F(MarkupFile, ANulEndsAUtf16Text) {
    EXPECT_TRUE(Load(Wide(u"<a/>\0<b/>"s)));
    EXPECT_EQ(markup.GetDoc(), "<a/>");
    EXPECT_EQ(markup.GetError(), "BOM + 9 wide chars to 4 bytes");
    markup.SetDoc("<a>\0</a>"s);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), Wide(u"<a>"));
    EXPECT_EQ(markup.GetError(), "8 bytes to BOM + 3 wide chars");
}

TEST_F(MarkupFile, OtherMarksAreText) {
    for (const std::string& bytes : {"\xFE\xFF\0<\0a\0/\0>"s, "\xFF\xFD<a/>"s, "\xFF<a/>"s}) {
        Load(bytes);
        EXPECT_EQ(markup.GetDoc(), bytes);
        EXPECT_EQ(markup.Flags() & kIsUtf16, 0u);
    }
}

TEST_F(MarkupFile, TheReportPrecedesAParseError) {
    EXPECT_FALSE(Load("<a>"));
    EXPECT_EQ(markup.GetError(), "3 bytes, End tag of a element not found");
    EXPECT_FALSE(Load(Wide(u"<a></b>")));
    EXPECT_EQ(markup.GetError(), "BOM + 7 wide chars to 7 bytes, End tag does not correspond to a");
    EXPECT_FALSE(Load("</a>"));
    EXPECT_EQ(markup.GetError(), "4 bytes") << "this failure has no message";
}

TEST_F(MarkupFile, AnEmptyFileLosesItsReport) {
    markup.SetDoc("<a/>");
    EXPECT_FALSE(Load(""));
    EXPECT_EQ(markup.GetDoc(), "");
    EXPECT_EQ(markup.GetError(), "");
    EXPECT_FALSE(markup.IsWellFormed());
}

TEST_F(MarkupFile, AFileThatCannotBeOpenedLeavesTheSystemsMessage) {
    EXPECT_FALSE(markup.Load((folder / "missing.xml").u16string()));
    EXPECT_EQ(markup.GetError(), std::strerror(ENOENT));
    EXPECT_FALSE(markup.Load((folder / "missing folder" / "missing.xml").u16string()));
    EXPECT_EQ(markup.GetError(), std::strerror(ENOENT));
    EXPECT_FALSE(markup.Load(folder.Path().u16string()));
    EXPECT_NE(markup.GetError(), "") << "a folder is no file";
}

TEST_F(MarkupFile, SavingWritesTheText) {
    Write(path, "something longer that is to be gone");
    markup.SetDoc("<a>\xC3\xA4\r\n</a>");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), "<a>\xC3\xA4\r\n</a>");
    EXPECT_EQ(markup.GetError(), "11 bytes");
}

TEST_F(MarkupFile, ADocumentFromUtf16IsSavedAsUtf16) {
    const std::string bytes = Wide(u"<a>\u00E4\u3042\U0001F600</a>");
    ASSERT_TRUE(Load(bytes));
    fs::remove(path);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), bytes);
    EXPECT_EQ(markup.GetError(), "16 bytes to BOM + 11 wide chars");
}

TEST_F(MarkupFile, APlainFileClearsTheMark) {
    ASSERT_TRUE(Load(Wide(u"<a/>")));
    ASSERT_TRUE(Load("<b/>"));
    EXPECT_EQ(markup.Flags() & kIsUtf16, 0u);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), "<b/>");
}

TEST_F(MarkupFile, ANewTextKeepsTheFormOfTheFile) {
    ASSERT_TRUE(Load(Wide(u"<a/>")));
    markup.SetDoc("<b/>");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), Wide(u"<b/>"));
}

TEST_F(MarkupFile, AnEmptyDocumentWritesNothing) {
    Write(path, "old");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), "");
    EXPECT_EQ(markup.GetError(), "") << "nothing to report";
    ASSERT_TRUE(Load(Wide(u"<a/>")));
    markup.SetDoc("");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), "") << "not even a mark";
}

TEST_F(MarkupFile, ADocumentThatIsNotWellFormedIsSavedToo) {
    markup.SetDoc("<a></b>");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Read(path), "<a></b>");
    EXPECT_FALSE(markup.IsWellFormed());
}

TEST_F(MarkupFile, SavingFailsWhereNoFileCanBeOpened) {
    markup.SetDoc("<a/>");
    EXPECT_FALSE(markup.Save((folder / "missing folder" / "a.xml").u16string()));
    EXPECT_EQ(markup.GetError(), std::strerror(ENOENT));
    EXPECT_FALSE(markup.Save(folder.Path().u16string()));
    EXPECT_NE(markup.GetError(), "");
    EXPECT_EQ(markup.GetDoc(), "<a/>");
    EXPECT_TRUE(markup.IsWellFormed());
}

TEST_F(MarkupFile, ATextThatIsTooLongForUtf16IsNotSaved) {
    ASSERT_TRUE(Load(Wide(u"<a>\u00E4</a>")));
    const std::size_t length = markup.GetDoc().size();
    Write(path, "old");
    EXPECT_FALSE(markup.Save(path.u16string(), length - 1));
    EXPECT_EQ(markup.GetError(), std::strerror(EFBIG));
    EXPECT_EQ(Read(path), "old");
    EXPECT_TRUE(markup.Save(path.u16string(), length));
    EXPECT_EQ(Read(path), Wide(u"<a>\u00E4</a>"));
    ASSERT_TRUE(Load("<a/>"));
    EXPECT_TRUE(markup.Save(path.u16string(), 3)) << "bytes are written as they are, however many";
}

TEST_F(MarkupFile, AUtf16FileThatIsTooLongIsNotRead) {
    markup.SetDoc("<old/>");
    Write(path, Wide(u"<a></a>")); // eight units with the mark
    EXPECT_FALSE(markup.Load(path.u16string(), 26));
    EXPECT_EQ(markup.GetError(), std::strerror(EFBIG));
    EXPECT_EQ(markup.GetDoc(), "<old/>");
    EXPECT_EQ(markup.Flags() & kIsUtf16, 0u);
    EXPECT_TRUE(markup.Load(path.u16string(), 27)) << "three bytes a unit fit";
    EXPECT_EQ(markup.GetDoc(), "<a></a>");
    Write(path, "<a></a>");
    EXPECT_TRUE(markup.Load(path.u16string(), 3)) << "bytes are read as they are, however many";
}

TEST_F(MarkupFile, TheLimitOfBothIsTwoGigabytes) { EXPECT_EQ(CMarkupSTL::kLongestConverted, 0x7FFFFFFFu); }

TEST_F(MarkupFile, AFullDeviceFailsTheWrite) {
    const fs::path full = "/dev/full";
    if (!fs::exists(full)) return; // only some systems have a device that is always full
    markup.SetDoc("<a>" + std::string(100000, 'x') + "</a>");
    EXPECT_FALSE(markup.Save(full.u16string()));
    EXPECT_EQ(markup.GetError(), std::strerror(ENOSPC));
    markup.SetDoc("<a/>");
    EXPECT_FALSE(markup.Save(full.u16string())) << "what only fails when the file is closed counts too";
    EXPECT_EQ(markup.GetError(), std::strerror(ENOSPC));
}

TEST_F(MarkupFile, SavingTakesNoSecondCopyOfTheText) {
    markup.SetDoc("<a>" + std::string(1 << 20, 'x') + "</a>");
    const std::size_t before = pavane_test::AllocatedBytes();
    ASSERT_TRUE(Save());
    EXPECT_LT(pavane_test::AllocatedBytes() - before, std::size_t{1} << 20);
}

TEST_F(MarkupFile, SavingKeepsTreeAndCursor) {
    ASSERT_TRUE(Load("<r><a/></r>"));
    ASSERT_TRUE(markup.FindElem("r/a"));
    const State before = StateOf(markup);
    ASSERT_TRUE(Save());
    EXPECT_EQ(StateOf(markup), before);
    ASSERT_TRUE(markup.AddElem("b"));
    ASSERT_TRUE(Save());
    EXPECT_EQ(Read(path), "<r><a/><b/>\r\n</r>");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
