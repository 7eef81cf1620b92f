#include "toolkit/boxes/box_attributes.h"

#include "toolkit/view_constants.h"

#include <algorithm>
#include <span>

namespace brixen::zeve {

void CopyBooleans(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                  std::initializer_list<ScopeName> names) {
    for (const ScopeName& name : names) CopyBoolean(attributes, viewAttributes, name);
}

void CopyNumbers(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                 std::initializer_list<ScopeName> names) {
    CopyNumbers(attributes, viewAttributes, std::span(names.begin(), names.size()));
}

void CopyStrings(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                 std::initializer_list<ScopeName> names) {
    for (const ScopeName& name : names) CopyString(attributes, viewAttributes, name);
}

void DefineBarSize(const CExpressionScope& viewAttributes, CExpressionScope& attributes,
                   const ScopeName& heightMetric) {
    const std::int64_t given = viewAttributes.GetLongOr("height"_name, 0);
    attributes.DefineNumber("height"_name, std::max(given, Metric(viewAttributes, heightMetric)));
    attributes.DefineNumber("width"_name, viewAttributes.GetLongOr("width"_name, 0));
}

void DefineSizeOr(const CExpressionScope& viewAttributes, CExpressionScope& attributes, const ScopeName& name,
                  const ScopeName& metric) {
    const std::int64_t given = viewAttributes.GetLongOr(name, 0);
    attributes.DefineNumber(name, given ? given : Metric(viewAttributes, metric));
}

} // namespace brixen::zeve
