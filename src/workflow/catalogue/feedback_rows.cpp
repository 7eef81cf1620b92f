#include "workflow/catalogue/feedback_rows.h"

#include "dictionaries/translation.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/lenient_text.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/feedback_data.h"
#include "workflow/service/service_text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::u16string_view kIndent = u"    ", kEllipsis = u"\u2026";

class RowList {
public:
    void AddLine(std::u16string_view indent, std::u16string_view line) {
        while (line.size() > kLongestRow) {
            const std::u16string_view part = lyr::gen::CutToUnits(line, kLongestRow);
            AddRow(indent, part, kEllipsis);
            line.remove_prefix(part.size());
            indent = kIndent;
        }
        AddRow(indent, line, {});
    }

    std::vector<std::u16string> Take() {
        if (missing > 0) {
            const std::string note =
                zeve::ZeveTranslate("$$$/pvn/feedback/storage/more", 0, std::to_string(missing));
            rows.push_back(lyr::gen::ReplacingUtf16(note));
        }
        return std::move(rows);
    }

private:
    void AddRow(std::u16string_view indent, std::u16string_view text, std::u16string_view end) {
        if (rows.size() == kMostRows) {
            ++missing;
            return;
        }
        (rows.emplace_back(indent) += text) += end;
    }

    std::vector<std::u16string> rows;
    std::size_t missing = 0;
};

void AddField(RowList& rows, const FeedbackField& field) {
    const std::u16string text = lyr::gen::ReplacingUtf16(field.text);
    std::u16string_view rest = text;
    std::size_t end = std::min(rest.find(u'\n'), rest.size());
    const std::string first = lyr::gen::ToUtf8(NeutralLine(rest.substr(0, end)));
    rows.AddLine({}, lyr::gen::ReplacingUtf16(zeve::ZeveTranslate(field.label, 0, first)));
    while (end < rest.size()) {
        rest.remove_prefix(end + 1);
        end = std::min(rest.find(u'\n'), rest.size());
        rows.AddLine(kIndent, NeutralLine(rest.substr(0, end)));
    }
}

} // namespace

std::vector<std::u16string> RowsOfFeedback(T_StorageInterface& bag) {
    RowList rows;
    for (const FeedbackField& field : FieldsOfFeedback(bag)) AddField(rows, field);
    return rows.Take();
}

} // namespace brixen::pvn::pvn_workflow
