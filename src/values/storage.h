// The property bag, through which the host side, the workflow engine and the panes exchange values.
//
// The type of a value is part of its address: a bag is three separate maps, chosen by a type name, and each
// may hold a value of its own under the same key. There is no conversion: a key that is read as another type
// than it was stored as is not found. Keys are byte strings, case-sensitive, and may be empty. There is no
// lock: one thread uses a bag at a time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace brixen::pvn {

inline constexpr std::string_view kValueTypeLong = "ValueType_Long";
inline constexpr std::string_view kValueTypeString = "ValueType_String";
inline constexpr std::string_view kValueTypePtr = "ValueType_Ptr";

// The operations of every bag. The type name decides about `value` and `out`:
//   ValueType_Long    value: a std::uint32_t to read           out: a std::uint32_t to write
//   ValueType_String  value: the NUL-terminated bytes to copy  out: a const char* to write (see Get)
//   ValueType_Ptr     value: is itself the pointer to store    out: a void* to write
class T_StorageInterface {
public:
    virtual ~T_StorageInterface() = default;
    // Stores a copy of the value under the key and replaces an earlier one. An unknown type name stores
    // nothing. Returns true in both cases. Throws std::bad_alloc; the earlier value is then kept.
    virtual bool Set(std::string_view key, std::string_view typeName, const void* value) = 0;
    // Returns false and leaves `out` alone when the key is absent or the type name unknown. The bag keeps
    // ownership of a string: the pointer holds until that key is next set or removed, or the bag is
    // destroyed.
    virtual bool Get(std::string_view key, std::string_view typeName, void* out) = 0;
    // Removing an absent key is no error.
    virtual void Remove(std::string_view key, std::string_view typeName) = 0;

protected:
    T_StorageInterface() = default;
    T_StorageInterface(const T_StorageInterface&) = default;
    T_StorageInterface& operator=(const T_StorageInterface&) = default;
};

// The bag that holds the values. A copy has its own entries. Stored pointers are borrowed, in the copy too.
class T_Storage final : public T_StorageInterface {
public:
    T_Storage() = default;
    T_Storage(const T_Storage&) = default;
    T_Storage& operator=(const T_Storage&) = default;
    ~T_Storage() override = default;

    bool Set(std::string_view key, std::string_view typeName, const void* value) override;
    bool Get(std::string_view key, std::string_view typeName, void* out) override;
    void Remove(std::string_view key, std::string_view typeName) override;

private:
    // Byte by byte, the shorter key first. Unlike std::less it does not clamp the difference of the lengths
    // to an int, which saves a lookup several steps at every key it passes.
    struct KeyOrder {
        using is_transparent = void;
        bool operator()(std::string_view left, std::string_view right) const {
            const std::size_t common = std::min(left.size(), right.size());
            const std::ptrdiff_t order = std::char_traits<char>::compare(left.data(), right.data(), common);
            const auto longer = static_cast<std::ptrdiff_t>(left.size() - right.size());
            return (order != 0 ? order : longer) < 0;
        }
    };
    template <class Value>
    using Map = std::map<std::string, Value, KeyOrder>;

    // Intentional: destroyed in reverse order, the pointers first and the numbers last.
    Map<std::uint32_t> longs;
    Map<std::string> strings;
    Map<void*> ptrs;
};

// Typed access to a bag, the only code that knows the type names. Set... return the result of the bag's Set.
// Get... return whether the key was found, and leave `out` alone when not.
bool SetLong(T_StorageInterface& bag, std::string_view key, std::uint32_t value);
bool SetPtr(T_StorageInterface& bag, std::string_view key, const void* value);
// A text with an embedded NUL is cut there.
bool SetString(T_StorageInterface& bag, std::string_view key, const char* value);
inline bool SetString(T_StorageInterface& bag, std::string_view key, const std::string& value) {
    return SetString(bag, key, value.c_str());
}

inline bool GetLong(T_StorageInterface& bag, std::string_view key, std::uint32_t& out) {
    return bag.Get(key, kValueTypeLong, &out);
}
inline bool GetPtr(T_StorageInterface& bag, std::string_view key, void*& out) {
    return bag.Get(key, kValueTypePtr, &out);
}
inline bool GetString(T_StorageInterface& bag, std::string_view key, std::string& out) {
    const char* text = nullptr;
    if (!bag.Get(key, kValueTypeString, &text)) return false;
    out = text;
    return true;
}
// Returns the text under the key, or the empty text.
[[nodiscard]] inline std::string StringOf(T_StorageInterface& bag, std::string_view key) {
    std::string text;
    GetString(bag, key, text);
    return text;
}

// Return false and leave `to` unchanged when `from` lacks the key; otherwise the result of the Set of `to`.
bool CopyLong(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);
bool CopyPtr(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);
bool CopyString(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);

} // namespace brixen::pvn
