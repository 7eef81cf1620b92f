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
    // `most`: how many rows there may be in all at the end of the field.
    void BeginField(std::size_t most) { mostRows = most; }

    void AddLine(std::u16string_view indent, std::u16string_view line) {
        while (line.size() > kLongestRow) {
            const std::u16string_view part = lyr::gen::CutToUnits(line, kLongestRow);
            AddRow(indent, part, kEllipsis);
            line.remove_prefix(part.size());
            indent = kIndent;
        }
        AddRow(indent, line, {});
    }

    // Without an indent, so that no line of a text looks like the note.
    void EndField() {
        if (missing == 0) return;
        const std::string count = std::to_string(missing + 1); // with the one that the note replaces
        rows.back() =
            lyr::gen::ReplacingUtf16(zeve::ZeveTranslate("$$$/pvn/feedback/storage/more", 0, count));
        missing = 0;
    }

    std::vector<std::u16string> Take() { return std::move(rows); }

private:
    void AddRow(std::u16string_view indent, std::u16string_view text, std::u16string_view end) {
        if (rows.size() == mostRows) {
            ++missing;
            return;
        }
        (rows.emplace_back(indent) += text) += end;
    }

    std::vector<std::u16string> rows;
    std::size_t mostRows = 0, missing = 0;
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
    const std::vector<FeedbackField> fields = FieldsOfFeedback(bag);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        rows.BeginField(kMostRows * (i + 1) / fields.size());
        AddField(rows, fields[i]);
        rows.EndField();
    }
    return rows.Take();
}

} // namespace brixen::pvn::pvn_workflow
