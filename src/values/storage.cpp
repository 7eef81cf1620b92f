#include "values/storage.h"

namespace brixen::pvn {
namespace {

// The typed functions below pass the constants themselves, which need no reading. Any other name is compared.
inline bool Names(std::string_view typeName, std::string_view known) {
    if (typeName.size() != known.size()) return false;
    return typeName.data() == known.data() || typeName == known;
}

// An overwritten entry keeps its node and its key, and only its value changes.
template <class Map, class Value>
void Put(Map& map, std::string_view key, Value value) {
    const auto place = map.lower_bound(key);
    if (place != map.end() && place->first == key) {
        place->second = value;
    } else {
        map.emplace_hint(place, key, value);
    }
}

// The end for an absent key. The search of the map itself would end with a second comparison of order, which
// takes longer than a test for equal keys.
template <class Map>
auto Find(Map& map, std::string_view key) {
    const auto place = map.lower_bound(key);
    return place != map.end() && place->first == key ? place : map.end();
}

template <class Map, class Out>
bool Take(const Map& map, std::string_view key, Out read) {
    const auto entry = Find(map, key);
    if (entry == map.end()) return false;
    read(entry->second);
    return true;
}

template <class Map>
void Erase(Map& map, std::string_view key) {
    if (const auto entry = Find(map, key); entry != map.end()) map.erase(entry);
}

} // namespace

bool T_Storage::Set(std::string_view key, std::string_view typeName, const void* value) {
    if (Names(typeName, kValueTypeLong)) {
        Put(longs, key, *static_cast<const std::uint32_t*>(value));
    } else if (Names(typeName, kValueTypeString)) {
        Put(strings, key, static_cast<const char*>(value));
    } else if (Names(typeName, kValueTypePtr)) {
        Put(ptrs, key, const_cast<void*>(value));
    }
    return true;
}

bool T_Storage::Get(std::string_view key, std::string_view typeName, void* out) {
    if (Names(typeName, kValueTypeLong)) {
        return Take(longs, key, [&](std::uint32_t value) { *static_cast<std::uint32_t*>(out) = value; });
    }
    if (Names(typeName, kValueTypeString)) {
        return Take(strings, key,
                    [&](const std::string& value) { *static_cast<const char**>(out) = value.c_str(); });
    }
    if (Names(typeName, kValueTypePtr)) {
        return Take(ptrs, key, [&](void* value) { *static_cast<void**>(out) = value; });
    }
    return false;
}

void T_Storage::Remove(std::string_view key, std::string_view typeName) {
    if (Names(typeName, kValueTypeLong)) {
        Erase(longs, key);
    } else if (Names(typeName, kValueTypeString)) {
        Erase(strings, key);
    } else if (Names(typeName, kValueTypePtr)) {
        Erase(ptrs, key);
    }
}

bool SetLong(T_StorageInterface& bag, std::string_view key, std::uint32_t value) {
    return bag.Set(key, kValueTypeLong, &value);
}

bool SetPtr(T_StorageInterface& bag, std::string_view key, const void* value) {
    return bag.Set(key, kValueTypePtr, value);
}

bool SetString(T_StorageInterface& bag, std::string_view key, const char* value) {
    return bag.Set(key, kValueTypeString, value);
}

bool CopyLong(T_StorageInterface& from, T_StorageInterface& to, std::string_view key) {
    std::uint32_t value = 0;
    return GetLong(from, key, value) && SetLong(to, key, value);
}

bool CopyPtr(T_StorageInterface& from, T_StorageInterface& to, std::string_view key) {
    void* value = nullptr;
    return GetPtr(from, key, value) && SetPtr(to, key, value);
}

bool CopyString(T_StorageInterface& from, T_StorageInterface& to, std::string_view key) {
    const char* text = nullptr;
    return from.Get(key, kValueTypeString, &text) && SetString(to, key, text);
}

} // namespace brixen::pvn
