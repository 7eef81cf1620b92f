// Privacy statements, privacystatements\FILE_NAME.txt below the root, as the language list
// privacyinfolist.xml in the root names them.
#pragma once

#include "workflow/resources/privacy_list.h"
#include "workflow/resources/resource_manager.h"

#include <list>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Returns the path of a FILE_NAME below the root. Empty if the name is no text in the machine's code page, is
// longer than 1024 units there, or leads out of the folder of the statements.
std::u16string StatementPath(std::string_view fileName);

// Returns the text of a statement's file: UTF-16 of either byte order after its mark, up to the first NUL
// unit. Kept: a file without a mark is not read as text, its text is empty.
std::u16string DecodeStatement(std::string_view bytes);

class PVNPrivacyStatementHandler final : public PVNResourceHandler {
public:
    // Returns the statement in the language with the LANGID `locale`, NUL-terminated (char16_t*), empty when
    // its file is no UTF-16 text. Null when there is no such file or it cannot be opened. `name` and `mode`
    // are ignored, and "default_locale" is a LANGID like any other.
    // Kept: without a Release, an earlier text stays valid as long as the handler.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    // Frees the text loaded last. `name` is ignored.
    void Release(const std::string& name) override;
    std::string Description() const override { return "Privacy Statement Resource"; }

    // Returns the list, which is read at the first call, and again as long as it is empty. Without its file
    // it is empty.
    const PVNPrivacyList& Languages();

private:
    PVNPrivacyList list;
    std::list<std::u16string> texts; // callers hold their addresses
    bool holdsLast = false;          // whether the last of them is the text loaded last
};

} // namespace brixen::pvn::pvn_workflow
