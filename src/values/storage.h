// The property bag: how the host side, the workflow engine and the panes hand values to one another.
//
// The type of a value is part of its address: a bag is three separate maps, chosen by a type name, and one
// key may stand, unrelated, in all three. There is no conversion; reading a key as another type than it was
// stored as finds nothing. Keys are byte strings, case-sensitive, and may be empty. No lock: one thread at a
// time.
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

// What every bag offers. What `value` and `out` point at depends on the type name:
//   ValueType_Long    value: a std::uint32_t to read           out: a std::uint32_t to write
//   ValueType_String  value: the NUL-terminated bytes to copy  out: a const char* to write (see Get)
//   ValueType_Ptr     value: is itself the pointer to store    out: a void* to write
class T_StorageInterface {
public:
    virtual ~T_StorageInterface() = default;
    // Stores a copy of the value under the key, in place of an earlier one. An unknown type name stores
    // nothing. Returns true in both cases. Throws std::bad_alloc.
    virtual bool Set(std::string_view key, std::string_view typeName, const void* value) = 0;
    // False, and `out` as it was, when the key is absent or the type name unknown. The text of a string stays
    // inside the bag: the pointer holds until that key is next set or removed, or the bag is destroyed.
    virtual bool Get(std::string_view key, std::string_view typeName, void* out) = 0;
    // Removing what is not there is no error.
    virtual void Remove(std::string_view key, std::string_view typeName) = 0;

protected:
    T_StorageInterface() = default;
    T_StorageInterface(const T_StorageInterface&) = default;
    T_StorageInterface& operator=(const T_StorageInterface&) = default;
};

// The bag that holds the values. A copy has its own entries; what the stored pointers point at is shared and
// is never owned.
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
    // Byte-wise, the shorter key first. The difference of two lengths is no int, as std::less would have it,
    // which saves a lookup several steps at every key it passes.
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

    // In this order, so that the pointers go first and the numbers last.
    Map<std::uint32_t> fLongs;
    Map<std::string> fStrings;
    Map<void*> fPtrs;
};

// The typed face of a bag, and the only code that knows the type names. Set... return what the bag's Set
// returned. Get... return whether the key was found, and leave `out` alone when not.
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

// False, and `to` unchanged, when `from` lacks the key; otherwise what the Set of `to` returned.
bool CopyLong(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);
bool CopyPtr(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);
bool CopyString(T_StorageInterface& from, T_StorageInterface& to, std::string_view key);

} // namespace brixen::pvn
