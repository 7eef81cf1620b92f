#include "workflow/catalogue/log_tail.h"

#include "frame/log.h"
#include "values/platform/values_platform.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/lenient_text.h"
#include "workflow/catalogue/text_checks.h"

#include <algorithm>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

std::string_view EndOf(std::string_view text, std::size_t bytes) {
    text.remove_prefix(text.size() - std::min(text.size(), bytes));
    return text;
}

} // namespace

std::string ReadLogTail() {
    const std::string log = lyr::gen::ReadWholeFile(LogFilePath()).value_or("");
    return std::string(EndOf(log, kMostKiBOfLog * kKiB));
}

std::size_t KiBOf(std::string_view log) { return (log.size() + kKiB - 1) / kKiB; }

std::u16string TailOfLog(std::string_view log, std::size_t kib) {
    std::string_view tail = EndOf(log, kib * kKiB);
    while (tail.size() < log.size() && !tail.empty() && !lyr::gen::BeginsCharacter(tail.front())) {
        tail.remove_prefix(1);
    }
    std::string text(tail);
    std::ranges::replace(text, '\0', '?'); // would end the text
    return SendableText(lyr::gen::LenientUtf16(text));
}

} // namespace brixen::pvn::pvn_workflow
