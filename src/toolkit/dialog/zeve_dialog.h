// The front door of the dialog toolkit: a host makes a handle, gives it the text of a view, has the dialog
// made and runs it modally. Everything belongs to the thread that calls ZeveMakeDialog.
//
// - A null handle raises std::logic_error "nil pointer", but for ZeveDelete, where it is no error.
// - ZeveShow, ZeveHide, ZeveEnable and ZeveDisable swallow every exception, also that for an id that no box
//   has. All other operations let exceptions derived from std::exception pass; any other they swallow, and
//   return null or false.
// - An exception of the host's callback that was raised inside a window procedure comes out of the operation,
//   or of the modal run, that led to the message. Until it has come out, the host hears no other message.
#pragma once

#include "toolkit/event_record.h"
#include "toolkit/platform/native_types.h"
#include "toolkit/zeve_callback.h"

#include <cstdint>

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
    const char* extraText = nullptr;   // kept, read by nothing
    ZeveCallback callback = nullptr;   // a dialog that makes a window must have one
    const char* language = nullptr;  // "he_IL" or "he-IL"; null or empty: left to right and the default fonts
    NativeModule instance = nullptr; // used for every window that is made
    NativeWindow parentWindow = nullptr; // the window that a modal run disables
};

// Once per process: the keyword table, the rich edit library and the common controls. Later calls do nothing.
void ZeveInitialize();

// A new dialog without view text. The caller ends it with ZeveDelete.
ZeveDialog* ZeveNew(const ZeveInitRecord* record);
// Appends to the view text; may be called several times before the dialog is made.
void ZeveAddViewText(ZeveDialog* dialog, const char* text);
// Runs the view text and makes all its boxes, hidden. Returns the top-level window: null if the root view is
// no `dialog`, or if the system refused the window. `params` goes to the callback. At most once for a dialog.
NativeWindow ZeveMakeDialog(ZeveDialog* dialog, void* params);
// Shows the dialog and handles messages until the callback ends the run. True if it was ended with
// kAnswerEndPositive. A dialog without a living window returns false at once and disables nothing; a parent
// that is null or no window any more counts as none. The dialog stays on screen afterward and can be run
// again.
bool ZeveRunModal(ZeveDialog* dialog);
// Deletes the dialog with its window and all boxes.
void ZeveDelete(ZeveDialog* dialog);

// The top-level window, or null if no dialog was made.
NativeWindow ZeveTopWindow(ZeveDialog* dialog);
// Translates the names of all boxes again.
void ZeveRetranslate(ZeveDialog* dialog);
// Hands the record to the SetValue of the box with that view id; false if there is none.
bool ZeveSetValue(ZeveDialog* dialog, std::uint16_t viewId, const EventRecord& record);
void ZeveShow(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveHide(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveEnable(ZeveDialog* dialog, std::uint16_t viewId);
void ZeveDisable(ZeveDialog* dialog, std::uint16_t viewId);

} // namespace brixen::zeve
