// The data of one event between a host and a box: a small table from key texts to 64-bit values, made on the
// stack for each event.
#pragma once

#include "toolkit/key_hash.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <string>
#include <string_view>

namespace brixen::zeve {

// The keys of a record. Handles, pointers and texts are stored as numbers. A text is a pointer to
// NUL-terminated UTF-8 that belongs to the side that stored it, unless this file says otherwise. The events,
// kWhat..., are in toolkit/zeve_callback.h.

// With kWhatMessage: a message of the dialog's window.
inline constexpr std::string_view kKeyEventRecord = "__zeve_event_record"; // its number
inline constexpr std::string_view kKeyWparam = "__zeve_wparam";
inline constexpr std::string_view kKeyLparam = "__zeve_lparam";
inline constexpr std::string_view kKeyWindow = "__zeve_window"; // NativeWindow; with kWhatTopLevelMade too

// With kWhatTopLevelMade and kWhatViewMade: a new box.
inline constexpr std::string_view kKeyScope = "__zeve_eveScope";  // CExpressionScope*, its attributes
inline constexpr std::string_view kKeyWhat = "__zeve_what";       // text, the keyword of its view
inline constexpr std::string_view kKeyControl = "__zeve_control"; // NativeWindow; only with kWhatViewMade
inline constexpr std::string_view kKeySubControl = "__zeve_sub_control"; // the same

// The value of a box.
inline constexpr std::string_view kKeySetValue = "__zeve_set_value"; // text or number, host to box
inline constexpr std::string_view kKeyValueBoolean = "__zeve_get_value_boolean"; // 1 or 0, box to caller
// Box to caller: a text; see StoreNewText.
inline constexpr std::string_view kKeyValueString = "__zeve_get_value_string";

// Kept: reserved; nothing stores or reads them.
inline constexpr std::string_view kKeyValueLong = "__zeve_get_value_long";
inline constexpr std::string_view kKeyZeveReference = "__zeve_zeve_ref";

class EventRecord {
public:
    EventRecord() = default;
    EventRecord(const EventRecord&) = delete;
    EventRecord& operator=(const EventRecord&) = delete;

    // Replaces an earlier value of the key.
    void Store(std::string_view key, std::int64_t value);
    void StorePointer(std::string_view key, const void* value);
    [[nodiscard]] bool Has(std::string_view key) const;
    // Throws std::logic_error "hash table index not found" for an absent key.
    [[nodiscard]] std::int64_t Read(std::string_view key) const;
    template <class T>
    [[nodiscard]] T ReadPointer(std::string_view key) const {
        return reinterpret_cast<T>(static_cast<std::intptr_t>(Read(key)));
    }

private:
    struct Entry {
        std::string key;
        std::int64_t value;
    };
    const Entry* Find(std::string_view key) const;

    std::array<std::forward_list<Entry>, kKeyBuckets> buckets;
};

// The three ways in which a box reads a value. If the record has a scope under kKeyScope that knows the key,
// the scope's value is read; else the record's own entry. Throws std::logic_error if neither has the key. A
// null text in the record counts as empty. The texts are borrowed from scope or record.
[[nodiscard]] std::string_view ReadText(const EventRecord& record, std::string_view key);
[[nodiscard]] std::int64_t ReadNumber(const EventRecord& record, std::string_view key);
// A value of the scope that is a four-character code of letters and digits is returned as those four
// characters, in a process-wide buffer that the next call overwrites.
[[nodiscard]] std::string_view ReadTextOrFourCharCode(const EventRecord& record, std::string_view key);

// Stores a copy of the text under kKeyValueString, made with new char[]; the reader of the record frees it
// with delete[]. An empty text is not stored.
void StoreNewText(EventRecord& record, std::string_view text);
// Does the same with room for at least `roomBytes` bytes, the final NUL counted, and stores an empty text
// too.
void StoreNewTextWithRoom(EventRecord& record, std::string_view text, std::size_t roomBytes);

} // namespace brixen::zeve
