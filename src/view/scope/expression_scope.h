// The variables of the view language: a chain of name tables. A value is a pair of a number and a text,
// without a type tag: a number has the text kEmptyScopeString, a text has the number kUndefinedNumber, and a
// quoted text of exactly four bytes in a description has both, the number being its four-character code.
//
// A scope belongs to the thread that runs the dialog. Names are case-sensitive. Write known names as
// literals, as in GetLong("width"_name, &width).
#pragma once

#include "view/scope/assertion.h"
#include "view/scope/scope_hooks.h"
#include "view/scope/scope_name.h"
#include "view/scope/scope_string_pool.h"
#include "view/scope/scope_table.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace brixen::zeve {

// Object references travel through scopes as numbers, at full width.
inline std::int64_t ReferenceNumber(const void* object) {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(object));
}
template <class T>
T* ReferenceFrom(std::int64_t number) {
    return reinterpret_cast<T*>(static_cast<std::intptr_t>(number));
}

class CExpressionScope {
public:
    // All arguments are borrowed and optional, and outlive the scope. The default of the function host is
    // that of the parent. The variables and texts of a scope lie in the memory of its pool; without a pool
    // the scope keeps them itself. An observer is not inherited.
    explicit CExpressionScope(CExpressionScope* parent = nullptr, ScopeFunctionHost* functionHost = nullptr,
                              ScopeStringPool* pool = nullptr, ScopeParseObserver* observer = nullptr);
    CExpressionScope(const CExpressionScope&) = delete;
    CExpressionScope& operator=(const CExpressionScope&) = delete;
    virtual ~CExpressionScope() = default;

    // Definitions go into this scope, never into a parent, and replace both sides of a name that is there.
    // They throw std::bad_alloc, and then the scope is as before.

    // `string` is kept, not copied: it is NUL-terminated and lives as long as the scope. Null means
    // kEmptyScopeString.
    void DefineVariable(const ScopeName& name, std::int64_t number, const char* string);
    void DefineNumber(const ScopeName& name, std::int64_t number) {
        if (!name.IsListed() || !table.SetPlainNumber(name, number)) {
            DefineRecord(name, number, kEmptyScopeBytes);
        }
    }
    // Copies the text into the pool. Every reader sees it end at its first NUL.
    void DefineString(const ScopeName& name, std::string_view text);
    // The same for a NUL-terminated text; one that lies in the pool already is shared, not copied.
    void DefineSharedString(const ScopeName& name, const char* text);
    // Defines, if `enabled`, the core constants: `true`, `false`, and the values of alignment, frame and
    // placement.
    void DefineConstants(bool enabled);

    // Queries look through this scope and then its parents. They return false and leave the result alone if
    // the name is absent. A null result pointer raises the assertion "Warning! (value != NULL)".

    bool HasVariable(const ScopeName& name) const { return static_cast<bool>(Find(name)); }
    // Whether the number is not 0; a text reads true.
    bool GetBoolean(const ScopeName& name, bool* value) const {
        return Get(name, value, [](std::int64_t number) { return number != 0; });
    }
    bool GetLong(const ScopeName& name, std::int64_t* value) const {
        return Get(name, value, [](std::int64_t number) { return number; });
    }
    // Gets the low 32 bits of the number.
    bool GetInt(const ScopeName& name, std::int32_t* value) const {
        return Get(name, value, [](std::int64_t number) { return static_cast<std::int32_t>(number); });
    }
    // Gets the bytes of a text of exactly 4 bytes without a number, the first one highest; else the low 32
    // bits of the number.
    bool GetFourCharCode(const ScopeName& name, std::uint32_t* value) const;
    // Gets a NUL-terminated text, which lives as long as the pool that holds it. Measures its length.
    bool GetString(const ScopeName& name, std::string_view* value) const;

    std::int64_t GetLongOr(const ScopeName& name, std::int64_t otherwise) const;
    bool GetBooleanOr(const ScopeName& name, bool otherwise) const;
    std::string_view GetStringOr(const ScopeName& name, std::string_view otherwise) const;

    // Returns both sides of a variable of the chain. Allocates nothing; a scope without the name costs one
    // test.
    FoundValue Find(const ScopeName& name) const {
        for (const CExpressionScope* scope = this; scope; scope = scope->parent) {
            if (const FoundValue found = scope->table.Find(name)) {
                return found;
            }
        }
        return {};
    }

    CExpressionScope* Parent() const { return parent; }
    // Counts the scopes of the chain.
    std::uint32_t ChainLength() const { return chainLength; }
    ScopeFunctionHost* FunctionHost() const { return functionHost; }
    ScopeParseObserver* Observer() const { return observer; }
    ScopeStringPool& Pool();
    // Returns the marks of all names that the chain holds.
    std::uint64_t MarksAlongChain() const;
    bool HasEntries() const { return !table.IsEmpty(); }
    // Counts the names of this scope alone.
    std::size_t VariableCount() const { return table.Count(); }

    // The identifier that an expression in this scope failed to find last: a range of the text that was read.
    void SetLastUnresolved(std::string_view identifier) { lastUnresolved = identifier; }
    std::string_view LastUnresolved() const { return lastUnresolved; }

private:
    template <class T, class Convert>
    bool Get(const ScopeName& name, T* value, Convert convert) const {
        Assert(value != nullptr, "value != NULL");
        const FoundValue found = Find(name);
        if (found) {
            *value = convert(found.number);
        }
        return static_cast<bool>(found);
    }
    void DefineRecord(const ScopeName& name, std::int64_t number, const char* string);

    CExpressionScope* parent;
    ScopeTable table;
    ScopeStringPool* activePool;              // null until the own one is needed
    std::unique_ptr<ScopeStringPool> ownPool; // made for the first text; null with a pool from outside
    ScopeFunctionHost* functionHost;
    ScopeParseObserver* observer;
    std::string_view lastUnresolved;
    std::uint32_t chainLength;
};

// Each looks `name` up along the chain of `source` and defines it in `destination`. Returns whether it was
// found. A text that lies in the pool of the destination already is shared, not copied.
bool CopyNumber(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name);
bool CopyBoolean(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name);
bool CopyString(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name);
// Does CopyNumber for each of the names, in their order, faster than one by one.
void CopyNumbers(CExpressionScope& destination, const CExpressionScope& source,
                 std::span<const ScopeName> names);
// Copies a text if the number is undefined, else a number.
bool CopyVariable(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name);

} // namespace brixen::zeve
