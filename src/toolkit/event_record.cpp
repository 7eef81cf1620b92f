#include "toolkit/event_record.h"

#include "toolkit/toolkit_state.h"
#include "view/scope/expression_scope.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace brixen::zeve {

namespace {

bool IsLetterOrDigit(unsigned byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

// Writes the code into the process-wide buffer if its four bytes, from the highest, are letters or digits.
bool SpellFourCharCode(std::uint32_t code) {
    char text[5] = {};
    for (int i = 0; i < 4; ++i) {
        const unsigned byte = (code >> (24 - 8 * i)) & 0xFF;
        if (!IsLetterOrDigit(byte)) return false;
        text[i] = static_cast<char>(byte);
    }
    std::copy(std::begin(text), std::end(text), gToolkit.fourCharText);
    return true;
}

const CExpressionScope* ScopeOf(const EventRecord& record) {
    return record.Has(kKeyScope) ? record.ReadPointer<const CExpressionScope*>(kKeyScope) : nullptr;
}

} // namespace

void EventRecord::Store(std::string_view key, std::int64_t value) {
    if (Entry* entry = const_cast<Entry*>(Find(key))) {
        entry->value = value;
    } else {
        buckets[KeyBucket(key)].push_front({std::string(key), value});
    }
}

void EventRecord::StorePointer(std::string_view key, const void* value) {
    Store(key, static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(value)));
}

bool EventRecord::Has(std::string_view key) const { return Find(key) != nullptr; }

std::int64_t EventRecord::Read(std::string_view key) const {
    const Entry* entry = Find(key);
    if (entry == nullptr) throw std::logic_error("hash table index not found");
    return entry->value;
}

const EventRecord::Entry* EventRecord::Find(std::string_view key) const {
    const auto& bucket = buckets[KeyBucket(key)];
    const auto found =
        std::find_if(bucket.begin(), bucket.end(), [key](const Entry& entry) { return entry.key == key; });
    return found != bucket.end() ? &*found : nullptr;
}

std::string_view ReadText(const EventRecord& record, std::string_view key) {
    std::string_view text;
    const CExpressionScope* scope = ScopeOf(record);
    if (scope != nullptr && scope->GetString(key, &text)) return text.data(); // up to a NUL
    const auto* own = record.ReadPointer<const char*>(key);
    return own != nullptr ? own : "";
}

std::int64_t ReadNumber(const EventRecord& record, std::string_view key) {
    std::int64_t number = 0;
    const CExpressionScope* scope = ScopeOf(record);
    if (scope != nullptr && scope->GetLong(key, &number)) return number;
    return record.Read(key);
}

std::string_view ReadTextOrFourCharCode(const EventRecord& record, std::string_view key) {
    std::uint32_t code = 0;
    const CExpressionScope* scope = ScopeOf(record);
    if (scope != nullptr && scope->GetFourCharCode(key, &code) && SpellFourCharCode(code)) {
        return gToolkit.fourCharText;
    }
    return ReadText(record, key);
}

void StoreNewText(EventRecord& record, std::string_view text) {
    if (!text.empty()) StoreNewTextWithRoom(record, text, 0);
}

void StoreNewTextWithRoom(EventRecord& record, std::string_view text, std::size_t roomBytes) {
    auto copy = std::make_unique<char[]>(std::max(text.size() + 1, roomBytes)); // all NUL
    std::copy(text.begin(), text.end(), copy.get());
    record.StorePointer(kKeyValueString, copy.get());
    copy.release(); // the reader of the record owns it now
}

} // namespace brixen::zeve
