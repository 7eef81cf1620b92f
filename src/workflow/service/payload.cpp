#include "workflow/service/payload.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

namespace {

using lyr::gen::CMarkupSTL;

bool IsUnwritable(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < ' ' && byte != '\t' && byte != '\n' && byte != '\r';
}

// Leaves the document on its root.
bool Open(CMarkupSTL& document, const std::string& payload, std::string_view root) {
    document.SetDoc(payload);
    return document.IsWellFormed() && document.FindElem() && document.GetTagName() == root;
}

} // namespace

PayloadWriter::PayloadWriter(const char* root) { document.AddElem(root); }

void PayloadWriter::Add(const char* name, std::string_view text) {
    if (std::ranges::none_of(text, IsUnwritable)) {
        document.AddChildElem(name, text);
        return;
    }
    std::string writable(text);
    std::erase_if(writable, IsUnwritable);
    document.AddChildElem(name, writable);
}

bool ReadPayloadField(const std::string& payload, std::string_view root, std::string_view name,
                      std::string& text) {
    text.clear();
    CMarkupSTL document;
    if (!Open(document, payload, root)) return false;
    document.IntoElem();
    while (document.FindElem()) {
        if (document.GetTagName() != name) continue;
        text = document.GetData();
        break;
    }
    return true;
}

bool IsPayload(const std::string& payload, std::string_view root) {
    CMarkupSTL document;
    return Open(document, payload, root);
}

} // namespace brixen::pvn::pvn_workflow
