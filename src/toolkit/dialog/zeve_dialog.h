// The operations of the dialog toolkit: a host makes a handle, adds the text of a view, has the dialog made
// and runs it modally. Everything belongs to the thread that calls ZeveMakeDialog.
//
// - A null handle throws std::logic_error "nil pointer", except in ZeveDelete, which ignores it.
// - ZeveShow, ZeveHide, ZeveEnable and ZeveDisable swallow every exception of their own, including the one
//   for an id that no box has. All other operations let exceptions derived from std::exception pass; they
//   swallow any other and return null or false.
// - If the host's callback throws inside a window procedure, the operation or the modal run that led to the
//   message throws the exception. Until then the host is called for no other message.
#pragma once

#include "toolkit/event_record.h"
#include "toolkit/platform/native_types.h"
#include "toolkit/zeve_callback.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::zeve {

class ZeveDialog; // opaque

// Flags of a ZeveInitRecord.
inline constexpr std::uint64_t kZeveRightToLeftAware = 1;
inline constexpr std::uint64_t kZeveReadOnly = 2;
inline constexpr std::uint64_t kZeveCheckBoxAware = 4;

// Read once, by ZeveNew; its texts are copied.
struct ZeveInitRecord {
    std::uint64_t parentReference = 0; // the host's own, seen by views as `__parent`
    std::uint64_t flags = 0;           // kZeve...
    const char* extraText = nullptr;   // Kept: stored, but nothing reads it
    ZeveCallback callback = nullptr;   // a dialog that makes a window must have one
    const char* language = nullptr;  // "he_IL" or "he-IL"; null or empty: left to right and the default fonts
    NativeModule instance = nullptr; // used for every window that is made
    NativeWindow parentWindow = nullptr; // a modal run disables its root ancestor
};

// The value of a box, as its class has it; a box can have none of the two.
struct BoxValue {
    std::optional<std::int64_t> number; // of a radio button or check box: 1 if it is marked, else 0
    std::optional<std::string> text;    // of a field, a label or a list, in UTF-8
};

// Fills the keyword table, loads the rich edit library and registers the common controls, once per process.
// Later calls do nothing. Throws exceptions derived from std::exception only.
void ZeveInitialize();

// Returns a new dialog without view text. The caller frees it with ZeveDelete. Throws std::logic_error for a
// null record.
[[nodiscard]] ZeveDialog* ZeveNew(const ZeveInitRecord* record);
// Appends to the view text; may be called several times before the dialog is made.
void ZeveAddViewText(ZeveDialog* dialog, const char* text);
// Defines a text variable that the view text can read, such as the text of another view for `eval`. The last
// text of a name counts; the toolkit's own names cannot be defined. Throws std::logic_error for a dialog that
// has its boxes already.
void ZeveDefineText(ZeveDialog* dialog, std::string_view name, std::string_view text);
// To be called by the host's callback for kWhatViewMade, with its record: makes a static control in the place
// of a `hyperlink` view, with the name as its text. Like any other control it is shown, hidden, enabled,
// translated and mirrored with its box. Returns null for a view of any other class, and if the system refused
// the control.
NativeWindow ZeveFillPlace(const EventRecord& record);
// Runs the view text and makes all its boxes, hidden. Returns the top-level window: null if the root view is
// not a `dialog`, or if the system refused the window. `params` is passed to the callback. Throws
// std::logic_error for a dialog that has its boxes already.
[[nodiscard]] NativeWindow ZeveMakeDialog(ZeveDialog* dialog, void* params);
// Shows the dialog and handles messages until the callback ends the run. Returns true if it ended with
// kAnswerEndPositive. For a dialog without a living window it returns false at once and disables nothing.
// NULL or an invalid handle means no parent. The dialog stays on the screen afterward and can be run again.
[[nodiscard]] bool ZeveRunModal(ZeveDialog* dialog);
// Deletes the dialog with its window and all boxes.
void ZeveDelete(ZeveDialog* dialog);

// Returns the top-level window; null if no dialog was made.
[[nodiscard]] NativeWindow ZeveTopWindow(ZeveDialog* dialog);
// Translates the names of all boxes again.
void ZeveRetranslate(ZeveDialog* dialog);
// Passes the record to SetValue of the box with that view id. Returns false if there is no such box.
bool ZeveSetValue(ZeveDialog* dialog, std::uint16_t viewId, const EventRecord& record);
// Returns the value of the box with that view id: nothing if there is no such box, or if its class has no
// value. With `honorSubCheck`, a box whose sub check is not set returns nothing; see the classes of the
// boxes. A field can show a message about its text, and then this waits for the user.
[[nodiscard]] BoxValue ZeveGetValue(ZeveDialog* dialog, std::uint16_t viewId, bool honorSubCheck);
// The number that a number field shows: see NumberField::ReadShown.
struct ShownNumber {
    std::string text;
    bool isEdited = false;     // by the user, since the last value was set
    bool mayBeGrouped = false; // its point may separate thousands: the user's decimal sign is another one
};
// Returns what the number field with that view id shows; nothing if there is no such field.
[[nodiscard]] std::optional<ShownNumber> ZeveShownNumber(ZeveDialog* dialog, std::uint16_t viewId);
// Returns the sub check of the box with that view id; null without one, or without such a box.
[[nodiscard]] NativeWindow ZeveSubControl(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveShow(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveHide(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveEnable(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveDisable(ZeveDialog* dialog, std::uint16_t viewId);

} // namespace brixen::zeve
