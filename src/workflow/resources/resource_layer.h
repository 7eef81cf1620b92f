// What a workflow asks of the files beside the library: its view description, its words, its bitmaps and the
// privacy statements, found by name in PVResources for the language of the run. Everything here belongs to
// the thread that runs the workflow.
//
// Views and dictionaries are vital: a missing one is logged and throws. Bitmaps are optional: a missing one
// is logged and null. Statements are optional and not logged.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {

// Initializes the toolkit, once per process, and sets the layer up for a locale such as "he_IL". Does nothing
// more when the layer is set up already: the first language holds until ShutDownResources.
void SelectLanguage(const std::string& language);

// Frees all that the layer holds: views, bitmap handles, statements, the language. Harmless without a set-up.
void ShutDownResources();

// Returns the text of NAME.exv, from the language's folder or from the root. Throws
// std::runtime_error("missing resource").
std::string LoadViewDescription(const std::string& name);

// Returns the path of NAME.exv in UTF-8, for messages. Empty when there is no such file.
std::string FindViewDescription(const std::string& name);

// Adds the dictionary of the workflow `name` to the dictionary store, from the language's folder or from
// en_US. Each dictionary is read once a run, however many workflows share it. Throws
// std::runtime_error("missing resource").
void LoadWorkFlowDictionary(const std::string& name);

// Returns the locale in which the pages are written: that of the dictionary read last, which is en_US if the
// language has none. Empty before the first one.
[[nodiscard]] const std::string& LocaleOfWords();

// The mode that the engine itself passes for a bitmap.
inline constexpr std::uint32_t kBitmapMode = 3;

// Returns the bitmap of NAME.png, from the language's folder or from the root, or null. The layer owns the
// handle until ReleaseBitmapResource or ShutDownResources. The bitmap handler ignores `mode`.
zeve::NativeBitmap LoadBitmapResource(const std::string& name, std::uint32_t mode = kBitmapMode);

// Deletes the bitmap of that name, if it is loaded. Without memory for the name it stays until
// ShutDownResources.
void ReleaseBitmapResource(const char* name) noexcept;

// Returns the path of NAME.html, from the language's folder or from en_US. Empty when there is none.
std::u16string FindLocalPage(const std::string& name);
// Returns whether FindLocalPage returned that path, since the layer was set up.
bool WasPageFound(const std::u16string& path);

// A language that has a privacy statement.
struct StatementLanguage {
    std::string locale; // as in "de_DE"
    std::string name;   // in the language's own words, UTF-8; may be empty
};

// Returns the languages of the language list in its order, repetitions included. Empty without a list.
std::vector<StatementLanguage> PrivacyStatementLanguages();

// Returns the privacy statement of a locale of the language list. Empty when there is none, or when its file
// is no UTF-16 text.
std::u16string LoadPrivacyStatement(const std::string& language);

// Takes resources from PVResources beside the library: the state after SelectLanguage.
void SetResourceRootToLibrary();

// Takes resources from PVResources below another folder (UTF-8). The caller restores the root at once.
void SetResourceRootBelow(const std::string& folder);

} // namespace brixen::pvn::pvn_workflow
