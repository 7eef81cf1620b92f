// The files of statements where the system alone decides: files that are open elsewhere, and devices.
#include "support/resource_folder.h"
#include "workflow/resources/privacy_statement_handler.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/resources/resource_manager.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <memory>
#include <string>

namespace brixen::pvn::pvn_workflow {

namespace {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, HandleCloser>;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class StatementFiles : public testing::Test {
protected:
    StatementFiles() { SetResourceRootBelow(folder.Utf8()); }
    ~StatementFiles() override { PVNResourceManager::Destroy(); }

    void Write(const std::string& fileName) const {
        folder.Write("privacyinfolist.xml", "<PVN_PRIVACY_INFO><LANGUAGE_INFO><LANGID>x</LANGID><FILE_NAME>" +
                                                fileName + "</FILE_NAME></LANGUAGE_INFO></PVN_PRIVACY_INFO>");
        folder.Write("privacystatements/statement.txt", std::string("\xFF\xFE"
                                                                    "a\0",
                                                                    4));
    }
    const void* Load() { return PVNPrivacyStatementHandler().Load("", "x", 0); }
    Handle Open(const char* name, DWORD share) const {
        return Handle(CreateFileW(folder.PathOf(name).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0,
                                  nullptr));
    }

    const pavane_test::ResourceFolder folder;
};

} // namespace

TEST_F(StatementFiles, AreNotOpenedWhileAnotherProgramHasThemOpen) {
    Write("statement");
    EXPECT_NE(Load(), nullptr);
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ}, kShareAll}) {
        const Handle other = Open("privacystatements/statement.txt", share);
        ASSERT_NE(other.get(), INVALID_HANDLE_VALUE);
        EXPECT_EQ(Load(), nullptr) << share;
    }
    EXPECT_NE(Load(), nullptr) << "it is closed again";
}

TEST_F(StatementFiles, AreUnknownWhileAnotherProgramHasTheListOpenExclusively) {
    Write("statement");
    PVNPrivacyStatementHandler handler;
    {
        const Handle other = Open("privacyinfolist.xml", 0);
        ASSERT_NE(other.get(), INVALID_HANDLE_VALUE);
        EXPECT_EQ(handler.Load("", "x", 0), nullptr);
        EXPECT_EQ(handler.Languages().ErrorCode(), -2);
        EXPECT_EQ(handler.Languages().ErrorText(), "Cannot open the file");
    }
    EXPECT_NE(handler.Load("", "x", 0), nullptr);
}

TEST_F(StatementFiles, AreNeverDevices) {
    for (const char* device : {"NUL", "CON", "nul", "COM1", "PRN"}) {
        Write(device);
        EXPECT_EQ(Load(), nullptr) << device;
    }
}

TEST_F(StatementFiles, AreFoundInAnyCaseOfTheirName) {
    Write("STATEMENT");
    EXPECT_NE(Load(), nullptr);
}

} // namespace brixen::pvn::pvn_workflow
