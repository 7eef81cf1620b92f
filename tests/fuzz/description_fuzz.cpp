// Runs bytes as a view description: through the reader and the layout alone, in both directions, and through
// the boxes of a dialog in a headless window system. The only results allowed are a dialog, a logic error,
// and the error for a text that is not UTF-8.
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/headless/headless.h"
#include "values/unicode/text_conversion.h"
#include "view/express_view_scope.h"
#include "view/reader/reader_state.h"
#include "view/reader/run_definition.h"
#include "view/verify_generator.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

using namespace brixen::zeve;

void Verify(const std::string& text, bool rightToLeft) {
    CVerifyGenerator generator;
    generator.rightToLeft = rightToLeft;
    const auto scope = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
    scope->DefineNumber("gSpace"_name, 6);
    try {
        RunDefinition(*scope, text.c_str());
    } catch (const std::logic_error&) {
    }
}

std::uint64_t Answer(std::int32_t, EventRecord&, void*) { return kAnswerDefault; }

void MakeDialog(const std::string& text, const char* language) {
    ZeveInitRecord record;
    record.callback = Answer;
    record.language = language;
    ZeveDialog* const dialog = ZeveNew(&record);
    try {
        ZeveAddViewText(dialog, text.c_str());
        (void)ZeveMakeDialog(dialog, nullptr);
    } catch (const std::logic_error&) {
    } catch (const brixen::lyr::gen::illegal_utf_sequence&) { // a text for a control that is not UTF-8
    }
    ZeveDelete(dialog);
    headless::State().calls.clear();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ZeveInitialize();
    // Sixty views alone look for 3,840 names.
    gReaderState.limits = {.evaluatedTexts = 64,
                           .evaluatedBytes = 4096,
                           .views = 60,
                           .searches = 5000,
                           .memory = 64 << 10,
                           .measuredUnits = 1500,
                           .shownBytes = 400,
                           .listItems = 48,
                           .controls = 30};
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    const std::string text(reinterpret_cast<const char*>(bytes), length);
    Verify(text, false);
    Verify(text, true);
    MakeDialog(text, length % 2 == 0 ? "en_US" : "he_IL");
    return 0;
}
