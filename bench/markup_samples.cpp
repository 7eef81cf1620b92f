#include "bench/markup_samples.h"

namespace bench {
namespace {

// The text before a record and before each of its fields.
struct Layout {
    const char* record;
    const char* field;
};

void AppendRecord(std::string& text, std::size_t number, const Layout& layout) {
    const std::string digits = std::to_string(number);
    text += layout.record;
    text += "<record id=\"r" + digits + "\" kind=\"invoice\">";
    text += layout.field;
    text += "<name>Person number " + digits + "</name>";
    text += layout.field;
    text += "<address country=\"DE\">" + digits + " High Street, Upper Town</address>";
    text += layout.field;
    text += "<total currency=\"EUR\">" + digits + ".50</total>";
    text += layout.field;
    text += "<note>Paid &amp; filed on receipt</note>";
    text += layout.record;
    text += "</record>";
}

std::string Records(std::size_t bytes, const Layout& layout) {
    std::string text = "<?xml version=\"1.0\"?>\n<records>";
    for (std::size_t number = 1; text.size() < bytes; ++number) AppendRecord(text, number, layout);
    return text + "\n</records>\n";
}

} // namespace

std::string MarkupRecords(std::size_t bytes) { return Records(bytes, {"\n", ""}); }

std::string MarkupIndented(std::size_t bytes) { return Records(bytes, {"\n    ", "\n        "}); }

std::string MarkupAnswer() {
    std::string text = "<?xml version=\"1.0\"?>\n<methodResponse>\n    <params>\n";
    for (const char* const name : {"Session", "Account", "Statement", "Payload"}) {
        text += "        <param>\n            <name>" + std::string(name) + "</name>\n";
        text +=
            "            <value><utf8_string>48616C6C6F2C2044696573206973742065696E65204E61636872696368742E"
            "20536965206B616D20616E2E</utf8_string></value>\n        </param>\n";
    }
    text += "        <param>\n            <name>Status</name>\n"
            "            <value><integer>0</integer></value>\n        </param>\n";
    return text + "    </params>\n</methodResponse>\n";
}

} // namespace bench
