// The language list: which languages have a privacy statement, and the file of each.
//
//   <PVN_PRIVACY_INFO>
//     <LANGUAGE_INFO>
//       <LANGID>de_DE</LANGID> <LANGNAME>Deutsch</LANGNAME> <LANG_GRP_ID/>
//       <FILE_NAME>privacy_de_DE</FILE_NAME> <SEQ_ID>2</SEQ_ID>
//     </LANGUAGE_INFO>
//   </PVN_PRIVACY_INFO>
//
// All values are element text, the five in any order. An absent one is empty. Attributes are not read.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::lyr::gen {
class CMarkupSTL;
}

namespace brixen::pvn::pvn_workflow {

// Each field has the name of its element.
struct PVNPrivacyInfo {
    std::string LANGID;      // the key: a locale such as "de_DE"
    std::string LANGNAME;    // name of the language, UTF-8
    std::string LANG_GRP_ID; // language group
    std::string FILE_NAME;   // of the statement, without extension, in the machine's code page
    std::string SEQ_ID;      // sequence number
};

class PVNPrivacyList {
public:
    // Replaces the entries by those of a file; null is a bad file name. The first error ends the read, and
    // the entries before it stay. A file that is no language list at all leaves the earlier entries in place.
    void Read(const char16_t* path);
    // The same for a well-formed document with its cursor before the root.
    void Read(lyr::gen::CMarkupSTL& markup);

    bool IsEmpty() const { return languages.empty(); }
    // The LANGID texts in the order of the list, repetitions included.
    const std::vector<std::string>& Languages() const { return languages; }
    // Returns the first entry of that LANGID, or an empty one. Valid until the next Read.
    const PVNPrivacyInfo& Find(const std::string& language) const;

    // The result of the latest read: 0 and an empty text, or
    //   -1 "Bad file name", -2 "Cannot open the file", -3 "Bad xml format", -4 "Not an PVN Privacy Info",
    //   -5 "Invalid tag in PVN_PRIVACY_INFO" or "Invalid tag in LanguageInfo".
    std::int32_t ErrorCode() const { return error.code; }
    std::string_view ErrorText() const { return error.text; }

private:
    struct Error {
        std::int32_t code = 0;
        std::string_view text;
    };

    Error ReadFile(const char16_t* path);
    Error ReadRoot(lyr::gen::CMarkupSTL& markup);
    Error ReadEntries(lyr::gen::CMarkupSTL& markup);
    void Add(PVNPrivacyInfo info);

    std::map<std::string, PVNPrivacyInfo> entries; // by LANGID
    std::vector<std::string> languages;
    Error error;
};

} // namespace brixen::pvn::pvn_workflow
