#include "view/expression_scope.h"

#include "view/assertion.h"

#include <cstring>

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
    : activePool(pool ? pool : &ownPool),
      functionHost(host || !parentScope ? host : parentScope->functionHost), observer(parseObserver),
      parent(parentScope) {}

void CExpressionScope::DefineVariable(const ScopeName& name, std::int64_t number, std::string_view string) {
    const char* text = string.data() ? string.data() : kEmptyScopeBytes;
    if (ScopeVariable* known = table.Find(name)) {
        known->number = number;
        known->string = text;
        return;
    }
    table.Reserve();
    table.Add(name, name.isLiteral ? name.text : activePool->Store(name.text), number, text);
}

void CExpressionScope::DefineNumber(const ScopeName& name, std::int64_t number) {
    DefineVariable(name, number, kEmptyScopeString);
}

void CExpressionScope::DefineString(const ScopeName& name, std::string_view text) {
    DefineVariable(name, kUndefinedNumber, activePool->Store(text));
}

void CExpressionScope::DefineConstants(bool enabled) {
    if (!enabled) {
        return;
    }
    for (const CoreConstant& constant : kCoreConstants) {
        DefineNumber(constant.name, constant.value);
    }
}

const ScopeVariable* CExpressionScope::Find(const ScopeName& name) const {
    for (const CExpressionScope* scope = this; scope; scope = scope->parent) {
        if (const ScopeVariable* found = scope->table.Find(name)) {
            return found;
        }
    }
    return nullptr;
}

bool CExpressionScope::GetBoolean(const ScopeName& name, bool* value) const {
    Assert(value != nullptr, "value != NULL");
    const ScopeVariable* found = Find(name);
    if (found) {
        *value = found->number != 0;
    }
    return found != nullptr;
}

bool CExpressionScope::GetLong(const ScopeName& name, std::int64_t* value) const {
    Assert(value != nullptr, "value != NULL");
    const ScopeVariable* found = Find(name);
    if (found) {
        *value = found->number;
    }
    return found != nullptr;
}

bool CExpressionScope::GetInt(const ScopeName& name, std::int32_t* value) const {
    Assert(value != nullptr, "value != NULL");
    const ScopeVariable* found = Find(name);
    if (found) {
        *value = static_cast<std::int32_t>(found->number);
    }
    return found != nullptr;
}

bool CExpressionScope::GetFourCharCode(const ScopeName& name, std::uint32_t* value) const {
    Assert(value != nullptr, "value != NULL");
    const ScopeVariable* found = Find(name);
    if (found) {
        const bool isPlainText = found->number == kUndefinedNumber && std::strlen(found->string) == 4;
        *value = isPlainText ? PackFourBytes(found->string) : static_cast<std::uint32_t>(found->number);
    }
    return found != nullptr;
}

bool CExpressionScope::GetString(const ScopeName& name, std::string_view* value) const {
    Assert(value != nullptr, "value != NULL");
    const ScopeVariable* found = Find(name);
    if (found) {
        *value = found->string;
    }
    return found != nullptr;
}

std::int64_t CExpressionScope::GetLongOr(const ScopeName& name, std::int64_t otherwise) const {
    const ScopeVariable* found = Find(name);
    return found ? found->number : otherwise;
}

bool CExpressionScope::GetBooleanOr(const ScopeName& name, bool otherwise) const {
    const ScopeVariable* found = Find(name);
    return found ? found->number != 0 : otherwise;
}

std::string_view CExpressionScope::GetStringOr(const ScopeName& name, std::string_view otherwise) const {
    const ScopeVariable* found = Find(name);
    return found ? std::string_view(found->string) : otherwise;
}

bool CopyNumber(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const ScopeVariable* found = source.Find(name);
    if (found) {
        destination.DefineNumber(name, found->number);
    }
    return found != nullptr;
}

bool CopyBoolean(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const ScopeVariable* found = source.Find(name);
    if (found) {
        destination.DefineNumber(name, found->number != 0 ? 1 : 0);
    }
    return found != nullptr;
}

bool CopyString(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const ScopeVariable* found = source.Find(name);
    if (found) {
        destination.DefineString(name, found->string);
    }
    return found != nullptr;
}

bool CopyVariable(CExpressionScope& destination, const CExpressionScope& source, const ScopeName& name) {
    const ScopeVariable* found = source.Find(name);
    if (found && found->number == kUndefinedNumber) {
        destination.DefineString(name, found->string);
    } else if (found) {
        destination.DefineNumber(name, found->number);
    }
    return found != nullptr;
}

} // namespace brixen::zeve
