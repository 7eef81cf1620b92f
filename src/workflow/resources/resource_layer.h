// What a workflow asks of the files beside the library: its view description, its words, its bitmaps and the
// privacy statements, found by name in PVResources for the language of the run. Everything here belongs to
// the thread that runs the workflow.
//
// Views and dictionaries are vital: a missing one leaves a log line and throws. Bitmaps are optional: a log
// line and null. Statements are optional without a log line.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {

// Initializes the toolkit, once per process, and sets the layer up for a locale such as "he_IL". Does nothing
// more when the layer is set up already: the first language stands until ShutDownResources.
void SelectLanguage(const std::string& language);

// Takes the layer down with all it holds: views, bitmap handles, the language. Harmless when nothing is set
// up.
void ShutDownResources();

// The text of NAME.exv, from the language's folder or from the root. Throws std::runtime_error("missing
// resource").
std::string LoadViewDescription(const std::string& name);

// Adds the dictionary of the workflow `name` to the dictionary store, from the language's folder or from
// en_US; each dictionary once a run, however many workflows share it. Throws std::runtime_error("missing
// resource").
void LoadWorkFlowDictionary(const std::string& name);

// What the engine itself passes as the mode of a bitmap.
inline constexpr std::uint32_t kBitmapMode = 3;

// The bitmap of NAME.png, from the language's folder or from the root, or null. The layer owns the handle
// until ReleaseBitmapResource or ShutDownResources. `mode` reaches the bitmap handler, which has a search of
// its own and ignores it.
zeve::NativeBitmap LoadBitmapResource(const std::string& name, std::uint32_t mode = kBitmapMode);

// Deletes the bitmap of that name, if it is loaded; without memory for the name it stays until
// ShutDownResources.
void ReleaseBitmapResource(const char* name) noexcept;

// The path of NAME.html, from the language's folder or from en_US; empty when there is none.
std::u16string FindLocalPage(const std::string& name);

// A language in which there is a privacy statement.
struct StatementLanguage {
    std::string locale; // as in "de_DE"
    std::string name;   // in the language's own words, UTF-8; may be empty
};

// What the language list names, in its order, repetitions included; empty when there is no list.
std::vector<StatementLanguage> PrivacyStatementLanguages();

// The privacy statement in the language that the list knows by that locale; empty when there is none, or when
// its file holds no UTF-16 text.
std::u16string LoadPrivacyStatement(const std::string& language);

// Takes resources from PVResources beside the library: the state after SelectLanguage.
void SetResourceRootToLibrary();

// Takes resources from PVResources below another folder (UTF-8). Whoever does restores the root at once.
void SetResourceRootBelow(const std::string& folder);

} // namespace brixen::pvn::pvn_workflow
