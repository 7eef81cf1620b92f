// Privacy statements, privacystatements\FILE_NAME.txt below the root, named by the language list
// privacyinfolist.xml, which lies in the root.
#pragma once

#include "workflow/resources/privacy_list.h"
#include "workflow/resources/resource_handler.h"

#include <list>

namespace brixen::pvn::pvn_workflow {

// The file of a FILE_NAME below the root; empty for one that is no text in the machine's code page, is longer
// than 1024 units there, or names what lies outside the folder of the statements.
std::u16string StatementPath(std::string_view fileName);

// What a statement's file says: UTF-16 of either byte order behind its mark, up to the first NUL unit. A file
// without a mark is not read as text: it gives an empty one.
std::u16string DecodeStatement(std::string_view bytes);

class PVNPrivacyStatementHandler final : public PVNResourceHandler {
public:
    // The statement in the language with that LANGID, NUL-terminated (char16_t*), empty when its file is no
    // UTF-16 text; null when there is no such file or it cannot be opened. "default_locale" is a LANGID like
    // any other here. `name` and `mode` are not used. A text that is loaded over stays valid as long as the
    // handler.
    void* Load(const std::string& name, const std::string& locale, std::uint32_t mode) override;
    // Frees the text loaded last; `name` is not used.
    void Release(const std::string& name) override;
    std::string Description() const override { return "Privacy Statement Resource"; }

    // Reads the list at the first call, and again as long as it is empty. Without its file it stays so.
    const PVNPrivacyList& Languages();

private:
    PVNPrivacyList list;
    std::list<std::u16string> texts; // at their addresses, which callers hold
    bool holdsLast = false;          // the last of them is the text loaded last
};

} // namespace brixen::pvn::pvn_workflow
