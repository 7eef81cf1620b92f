// What a host and a box tell each other about one event: a small table from key text to a 64-bit value, made
// on the stack for each event.
#pragma once

#include "toolkit/key_hash.h"

#include <array>
#include <cstdint>
#include <forward_list>
#include <string>
#include <string_view>

namespace brixen::zeve {

// The keys of a record. Handles, pointers and texts travel as numbers at full pointer width; a text is a
// plain pointer to NUL-terminated UTF-8, owned by whoever stored it unless it is told otherwise here. The
// occasions, kWhat..., stand in toolkit/zeve_callback.h.

// On kWhatMessage: a message of the dialog's window.
inline constexpr std::string_view kKeyEventRecord = "__zeve_event_record"; // its number
inline constexpr std::string_view kKeyWparam = "__zeve_wparam";
inline constexpr std::string_view kKeyLparam = "__zeve_lparam";
inline constexpr std::string_view kKeyWindow = "__zeve_window"; // NativeWindow; on kWhatTopLevelMade too

// On kWhatTopLevelMade and kWhatViewMade: a box that was made.
inline constexpr std::string_view kKeyScope = "__zeve_eveScope";         // CExpressionScope*, its attributes
inline constexpr std::string_view kKeyWhat = "__zeve_what";              // text: the keyword of its view
inline constexpr std::string_view kKeyControl = "__zeve_control";        // NativeWindow, kWhatViewMade alone
inline constexpr std::string_view kKeySubControl = "__zeve_sub_control"; // likewise

// The value of a box.
inline constexpr std::string_view kKeySetValue = "__zeve_set_value"; // text or number, host to box
inline constexpr std::string_view kKeyValueBoolean = "__zeve_get_value_boolean"; // 1 or 0, box to caller
// Box to caller: a text made with new char[]; the caller frees it with delete[].
inline constexpr std::string_view kKeyValueString = "__zeve_get_value_string";

// Reserved: nothing stores or reads them.
inline constexpr std::string_view kKeyValueLong = "__zeve_get_value_long";
inline constexpr std::string_view kKeyZeveReference = "__zeve_zeve_ref";

class EventRecord {
public:
    EventRecord() = default;
    EventRecord(const EventRecord&) = delete;
    EventRecord& operator=(const EventRecord&) = delete;

    // Replaces what the key held.
    void Store(std::string_view key, std::int64_t value);
    void StorePointer(std::string_view key, const void* value);
    bool Has(std::string_view key) const;
    // Throws std::logic_error "hash table index not found" for a key that is absent.
    std::int64_t Read(std::string_view key) const;
    template <class T>
    T ReadPointer(std::string_view key) const {
        return reinterpret_cast<T>(static_cast<std::intptr_t>(Read(key)));
    }

private:
    struct Entry {
        std::string key;
        std::int64_t value;
    };
    const Entry* Find(std::string_view key) const;

    std::array<std::forward_list<Entry>, kKeyBuckets> fBuckets;
};

// The three ways in which a box reads a value. Each prefers the scope under kKeyScope, if the record has one
// that is not null and that knows the key; otherwise the record's own entry is read, which must be there.
const char* ReadTextPointer(const EventRecord& record, std::string_view key);
std::int64_t ReadNumber(const EventRecord& record, std::string_view key);
// A text of the scope that is a four-character code of letters and digits comes back as those four characters
// in a process-wide buffer, which the next call overwrites.
const char* ReadTextOrFourCharCode(const EventRecord& record, std::string_view key);

} // namespace brixen::zeve
