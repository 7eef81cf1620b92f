#include "workflow/catalogue/log_tail.h"

#include "frame/log.h"
#include "values/platform/values_platform.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/lenient_text.h"
#include "workflow/catalogue/text_checks.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::size_t kNear = 256;       // bytes
constexpr std::size_t kMostTrailing = 3; // bytes of a character after its first

// At most that many bytes of the end, from a whole line on if one begins near the cut, else from a whole
// character on.
std::string_view EndOf(std::string_view text, std::size_t bytes) {
    if (bytes >= text.size()) return text;
    const std::size_t cut = text.size() - bytes;
    const std::size_t lineFeed = text.substr(cut - 1, kNear).find('\n');
    if (lineFeed != text.npos) return text.substr(cut + lineFeed);
    std::string_view end = text.substr(cut);
    for (std::size_t i = 0; i < kMostTrailing && !end.empty(); ++i) {
        if (lyr::gen::BeginsCharacter(end.front())) break;
        end.remove_prefix(1);
    }
    return end;
}

} // namespace

std::string ReadLogTail() {
    constexpr std::size_t kMost = kMostKiBOfLog * kKiB;
    // The byte before shows whether a line begins at the cut.
    const std::string end = lyr::gen::ReadEndOfFile(LogFilePath(), kMost + 1).value_or("");
    return std::string(EndOf(end, kMost));
}

std::size_t KiBOf(std::string_view log) { return (log.size() + kKiB - 1) / kKiB; }

std::u16string TailOfLog(std::string_view log, std::size_t kib) {
    return SendableText(lyr::gen::ReplacingUtf16(EndOf(log, kib * kKiB)));
}

} // namespace brixen::pvn::pvn_workflow
