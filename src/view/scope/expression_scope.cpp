#include "view/scope/expression_scope.h"

#include "view/scope/assertion.h"

#include <memory_resource>

namespace brixen::zeve {
namespace {

struct CoreConstant {
    ScopeName name;
    std::int64_t value;
};

constexpr CoreConstant kCoreConstants[] = {
    {"true"_name, 1},
    {"false"_name, 0},
    {"align_fill"_name, 1},
    {"align_left"_name, 4},
    {"align_bottom"_name, 5},
    {"align_right"_name, 5},
    {"align_center"_name, 2},
    {"align_proportional"_name, 3},
    {"align_top"_name, 4},
    {"frame_none"_name, 0},
    {"frame_bevel"_name, 1},
    {"frame_rectangle"_name, 2},
    {"place_column"_name, 0},
    {"place_row"_name, 1},
    {"place_offscreen"_name, 2},
};

// Whether the text has exactly four bytes; does not look further.
bool HasFourBytes(const char* text) {
    return text[0] != 0 && text[1] != 0 && text[2] != 0 && text[3] != 0 && text[4] == 0;
}

std::uint32_t PackFourBytes(const char* text) {
    std::uint32_t code = 0;
    for (int place = 0; place < 4; ++place) {
        code = code << 8 | static_cast<unsigned char>(text[place]);
    }
    return code;
}

} // namespace

CExpressionScope::CExpressionScope(CExpressionScope* parentScope, ScopeFunctionHost* host,
                                   ScopeStringPool* pool, ScopeParseObserver* parseObserver)
    : parent(parentScope), table(pool ? pool->Memory() : *std::pmr::new_delete_resource()), activePool(pool),
      functionHost(host || !parentScope ? host : parentScope->functionHost), observer(parseObserver),
      chainLength(parentScope ? parentScope->chainLength + 1 : 1) {}

ScopeStringPool& CExpressionScope::Pool() {
    if (!activePool) {
        ownPool = std::make_unique<ScopeStringPool>();
        activePool = ownPool.get();
    }
    return *activePool;
}

void CExpressionScope::DefineVariable(const ScopeName& name, std::int64_t number, const char* string) {
    if (string == nullptr || string == kEmptyScopeBytes) {
        DefineNumber(name, number);
    } else {
        DefineRecord(name, number, string);
    }
}

void CExpressionScope::DefineString(const ScopeName& name, std::string_view text) {
    DefineRecord(name, kUndefinedNumber, Pool().Store(text).data());
}

void CExpressionScope::DefineSharedString(const ScopeName& name, const char* text) {
    if (Pool().Holds(text)) {
        DefineRecord(name, kUndefinedNumber, text);
    } else {
        DefineString(name, text);
    }
}

void CExpressionScope::DefineRecord(const ScopeName& name, std::int64_t number, const char* string) {
    if (table.Replace(name, number, string)) return;
    table.Add(name, name.lasts ? name.text.data() : Pool().Store(name.text).data(), number, string);
}

void CExpressionScope::DefineConstants(bool enabled) {
    if (!enabled) {
        return;
    }
    for (const CoreConstant& constant : kCoreConstants) {
        DefineNumber(constant.name, constant.value);
    }
}

std::uint64_t CExpressionScope::MarksAlongChain() const {
    std::uint64_t marks = 0;
    for (const CExpressionScope* scope = this; scope; scope = scope->parent) {
        marks |= scope->table.Marks();
    }
    return marks;
}

bool CExpressionScope::GetFourCharCode(const ScopeName& name, std::uint32_t* value) const {
    Assert(value != nullptr, "value != NULL");
    const FoundValue found = Find(name);
    if (found) {
        const bool isPlainText = found.number == kUndefinedNumber && HasFourBytes(found.string);
        *value = isPlainText ? PackFourBytes(found.string) : static_cast<std::uint32_t>(found.number);
    }
    return static_cast<bool>(found);
}

bool CExpressionScope::GetString(const ScopeName& name, std::string_view* value) const {
    Assert(value != nullptr, "value != NULL");
    const FoundValue found = Find(name);
    if (found) {
        *value = found.string;
    }
    return static_cast<bool>(found);
}

std::int64_t CExpressionScope::GetLongOr(const ScopeName& name, std::int64_t otherwise) const {
    const FoundValue found = Find(name);
    return found ? found.number : otherwise;
}

bool CExpressionScope::GetBooleanOr(const ScopeName& name, bool otherwise) const {
    const FoundValue found = Find(name);
    return found ? found.number != 0 : otherwise;
}

std::string_view CExpressionScope::GetStringOr(const ScopeName& name, std::string_view otherwise) const {
    const FoundValue found = Find(name);
    return found ? std::string_view(found.string) : otherwise;
}

bool CopyNumber(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const FoundValue found = source.Find(name);
    if (found) {
        destination.DefineNumber(name, found.number);
    }
    return static_cast<bool>(found);
}

void CopyNumbers(CExpressionScope& destination, const CExpressionScope& source,
                 std::span<const ScopeName> names) {
    const std::uint64_t marks = source.MarksAlongChain();
    for (const ScopeName& name : names) {
        if ((marks >> name.mark & 1) != 0) {
            CopyNumber(destination, source, name);
        }
    }
}

bool CopyBoolean(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const FoundValue found = source.Find(name);
    if (found) {
        destination.DefineNumber(name, found.number != 0 ? 1 : 0);
    }
    return static_cast<bool>(found);
}

bool CopyString(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const FoundValue found = source.Find(name);
    if (found) {
        destination.DefineSharedString(name, found.string);
    }
    return static_cast<bool>(found);
}

bool CopyVariable(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const FoundValue found = source.Find(name);
    if (found && found.number == kUndefinedNumber) {
        destination.DefineSharedString(name, found.string);
    } else if (found) {
        destination.DefineNumber(name, found.number);
    }
    return static_cast<bool>(found);
}

} // namespace brixen::zeve
