// What an author is told, and what the command leaves behind.
#include "tools/compile_command.h"
#include "tools/dictionary_compiler.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

using namespace pavane_tools;
using testing::EndsWith;
using testing::StartsWith;

namespace {

// All remarks as `line: message`, an error with an exclamation mark.
std::string RemarksOn(std::string_view source) {
    std::string remarks;
    for (const LineRemark& remark : CompileDictionary(source).remarks) {
        remarks += std::to_string(remark.line) + (remark.isError ? "! " : ": ") + remark.message + "\n";
    }
    return remarks;
}

TEST(DictionaryCompiler, SaysNothingOfAGoodSource) {
    EXPECT_EQ(RemarksOn("\"$$$/a=x\"\r\n\r\n  note \"$$$/b=y\" more\n$$$/c=z"), "");
    EXPECT_EQ(RemarksOn("\xEF\xBB\xBF\"$$$/a=x\""), "");
    EXPECT_EQ(RemarksOn(""), "");
}

TEST(DictionaryCompiler, NamesTheLineOfEachError) {
    const std::string source = "\"$$$/good=x\"\n"
                               "\"$$/a=x\"\r\n"
                               "=value\r"
                               "/k\xE2\x82\xACy=x\n"
                               "/a=\xFF\n"
                               "/a=x\xE2\x80\xA8y\n" +
                               std::string("/a=x\0y\n", 7);
    EXPECT_EQ(RemarksOn(source), "2! begins with $, but not with $$$\n"
                                 "3! has no key\n"
                                 "4! the key holds a character beyond Latin-1\n"
                                 "5! is not UTF-8\n"
                                 "6! U+2028 and U+2029 end a line: write #{2028} or #{2029}\n"
                                 "7! a NUL character ends the dictionary\n");
    EXPECT_EQ(CompileDictionary(source).bytes, "");
}

TEST(DictionaryCompiler, RefusesAQuotationMarkThatCutsAText) {
    for (const char* const line :
         {R"("$$$/a=say "hi" to them")", R"("$$$/a=5" disk")", R"("$$$/a=""")", R"($$$/a=say "hi" to them)",
          R"($$$/a=")", R"(/a=say "hi" to them)", R"($$$/a=say "x=1")", R"("$$$/a=x" see "$$$/b")"}) {
        EXPECT_EQ(RemarksOn(line), "1! a quotation mark inside the text cuts it: write \\\"\n") << line;
    }
    for (const char* const line :
         {R"("$$$/a=say \"hi\" to them")", R"($$$/a=say \"hi\")", R"("$$$/a=x" see \"b\")", R"("$$$/a="=)",
          R"(note \" "$$$/a=x")", R"(a=b? "$$$/a=x")", R"(words "$$$/a=x")", R"("$$$/a=to the end)"}) {
        EXPECT_EQ(RemarksOn(line), "") << line;
    }
}

TEST(DictionaryCompiler, RefusesTextsThatAreTooLong) {
    EXPECT_EQ(RemarksOn("$$$/a=" + std::string(32767, 'v')), "");
    EXPECT_EQ(RemarksOn("$$$/a=" + std::string(32768, 'v')),
              "1! the value is longer than 32767 characters\n");
    EXPECT_EQ(RemarksOn("$$$/" + std::string(65534, 'k') + "=v"), "");
    EXPECT_EQ(RemarksOn("$$$/" + std::string(65535, 'k') + "=v"),
              "1! the key is longer than 65535 characters\n");
}

TEST(DictionaryCompiler, WarnsOfAValueThatIsMissingOrReplaced) {
    const std::string source = "$$$/c\n$$$/a=1\n\n\"$$$/a=2\"\n";
    EXPECT_EQ(RemarksOn(source), "1: has no =, so its value is empty\n"
                                 "4: replaces the value of line 2\n");
    EXPECT_TRUE(CompileDictionary(source).IsGood());
    EXPECT_EQ(RemarksOn("\"$$$/a\" = x\n\"$$$/b=\"\n$$$/c="), "1: has no =, so its value is empty\n");
}

TEST(DictionaryCompiler, WarnsOfAKeyWithoutItsMark) {
    for (const char* const line : {"plain/key=x", "\"/a=x\"", "$$$a=x", "/$$$/a=x"}) {
        EXPECT_EQ(RemarksOn(line), "1: the key does not begin with $$$/\n") << line;
        EXPECT_TRUE(CompileDictionary(line).IsGood()) << line;
    }
    EXPECT_EQ(RemarksOn("a line of words"), "1: the key does not begin with $$$/\n"
                                            "1: has no =, so its value is empty\n");
}

TEST(DictionaryCompiler, WritesTheSameBytesEachTime) {
    const std::string source = "/b=2\n/a=1\n/c=3\n";
    EXPECT_EQ(CompileDictionary(source).bytes, CompileDictionary(source).bytes);
}

TEST(DictionaryWriter, RefusesWhatTheLengthsCannotHold) {
    const std::string key(65535, 'k');
    const std::u16string value(32767, u'v');
    EXPECT_NO_THROW((void)WriteDictionary({{key, value, value}}));
    EXPECT_THROW((void)WriteDictionary({{key + "k", u"", {}}}), std::length_error);
    EXPECT_THROW((void)WriteDictionary({{"k", value + u"v", {}}}), std::length_error);
    EXPECT_THROW((void)WriteDictionary({{"k", u"", value + u"v"}}), std::length_error);
}

TEST(DictionaryWriter, BeginsTheValuesAtAnEvenByte) {
    for (const char* const key : {"/a", "/ab"}) {
        for (const char* const headerText : {"", "x"}) {
            const std::string bytes =
                WriteDictionary({{key, u"\u4E2D\u6587", {}}}, {.headerText = headerText});
            EXPECT_EQ(bytes.find("\x2D\x4E\x87\x65") % 2, 0u) << key << headerText;
        }
    }
}

class CompileCommand : public testing::Test {
protected:
    int Run(const std::vector<std::string>& arguments) {
        messages.str("");
        return RunCompileCommand(arguments, messages);
    }
    std::string In(const char* name) const { return (folder / name).string(); }
    static void Write(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    }

    pavane_test::TemporaryFolder folder{u"compile"};
    std::ostringstream messages;
};

TEST_F(CompileCommand, WritesTheTargetAndItsFolders) {
    Write(In("a.txt"), "$$$/a=x\n");
    EXPECT_EQ(Run({In("a.txt"), In("new/folder/a.zdct")}), 0);
    EXPECT_EQ(messages.str(), "");
    EXPECT_EQ(Read(In("new/folder/a.zdct")), CompileDictionary("$$$/a=x\n").bytes);
    EXPECT_FALSE(std::filesystem::exists(In("new/folder/a.zdct.new")));
}

TEST_F(CompileCommand, SaysWhereErrorsAreAndKeepsTheOlderTarget) {
    Write(In("a.txt"), "$$$/no_equals\n$/a=x\n");
    Write(In("a.zdct"), "older");
    EXPECT_EQ(Run({In("a.txt"), In("a.zdct")}), 1);
    EXPECT_EQ(messages.str(), In("a.txt") + ":1: warning: has no =, so its value is empty\n" + In("a.txt") +
                                  ":2: error: begins with $, but not with $$$\n");
    EXPECT_EQ(Read(In("a.zdct")), "older");
}

TEST_F(CompileCommand, ComplainsAboutFilesAndUsage) {
    EXPECT_EQ(Run({In("absent.txt"), In("a.zdct")}), 2);
    EXPECT_THAT(messages.str(), EndsWith("absent.txt: cannot be read\n"));
    EXPECT_EQ(Run({folder.Path().string(), In("a.zdct")}), 2);
    EXPECT_THAT(messages.str(), EndsWith(": cannot be read\n"));
    Write(In("a.txt"), "/a=x\n");
    EXPECT_EQ(Run({In("a.txt"), In("a.txt/below")}), 2);
    EXPECT_THAT(messages.str(), EndsWith("below: cannot be written\n"));
    EXPECT_EQ(Run({In("a.txt")}), 2);
    EXPECT_THAT(messages.str(), StartsWith("usage:"));
}

} // namespace
