#include "workflow/panes/number_fields.h"

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/kept_exception.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/panes/pane_helpers.h"

#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace toolkit_platform = zeve::platform;

std::optional<std::string> NumberFieldReader::Read(std::uint16_t viewId) {
    const zeve::NativeWindow field = toolkit_platform::ChildWithId(zeve::ZeveTopWindow(dialog), viewId);
    if (hasCorrected || !field) return std::nullopt;
    const std::u16string before = toolkit_platform::TextOf(field);
    std::optional<std::string> value = zeve::ZeveGetValue(dialog, viewId, true).text;
    hasCorrected = toolkit_platform::TextOf(field) != before;
    if (!hasCorrected) return value && !value->empty() ? value : std::nullopt;
    // The host ran during the message. If it destroyed the field, the dialog may be gone too.
    if (!toolkit_platform::IsWindowAlive(field)) return std::nullopt;
    // The field shows six decimals now. Set as a value, the number has the format of the field.
    if (value) SetControlText(dialog, viewId, *value);
    toolkit_platform::Focus(field);
    zeve::ThrowKeptException();
    return std::nullopt;
}

std::optional<std::string> NumberFieldReader::ReadShown(std::uint16_t viewId) {
    if (!Read(viewId)) return std::nullopt;
    std::optional<zeve::ShownNumber> shown = zeve::ZeveShownNumber(dialog, viewId);
    return shown ? std::optional(std::move(shown->text)) : std::nullopt;
}

} // namespace brixen::pvn::pvn_workflow
