// The steps that many boxes take with the attributes of their views.
#pragma once

#include "view/scope/expression_scope.h"

#include <cstdint>
#include <initializer_list>

namespace brixen::zeve {

// Copy the attributes of these names that the view has.
void CopyBooleans(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                  std::initializer_list<ScopeName> names);
void CopyNumbers(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                 std::initializer_list<ScopeName> names);
void CopyStrings(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                 std::initializer_list<ScopeName> names);

// Defines the size of a box that measures no text: the view's own width, or 0, and the larger of the view's
// height and the metric.
void DefineBarSize(const CExpressionScope& viewAttributes, CExpressionScope& attributes,
                   const ScopeName& heightMetric);
// Defines one side of a box: the view's number, or the metric if that is absent or 0.
void DefineSizeOr(const CExpressionScope& viewAttributes, CExpressionScope& attributes, const ScopeName& name,
                  const ScopeName& metric);

// Pixels left and right of a text in a box whose width is measured, together.
inline constexpr std::int64_t kTextMargins = 20;

// The low 16 bits of a number: boxes hold positions and sizes in 16 bits.
[[nodiscard]] inline std::int16_t CutTo16(std::int64_t number) { return static_cast<std::int16_t>(number); }

} // namespace brixen::zeve
