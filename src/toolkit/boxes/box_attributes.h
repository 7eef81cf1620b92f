// What boxes do with the attributes of their views again and again.
#pragma once

#include "view/scope/expression_scope.h"

#include <cstdint>
#include <initializer_list>

namespace brixen::zeve {

// Copies those of the names that the view has.
void CopyBooleans(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                  std::initializer_list<ScopeName> names);
void CopyNumbers(CExpressionScope& attributes, const CExpressionScope& viewAttributes,
                 std::initializer_list<ScopeName> names);

// Defines the size of a box that measures no text: the view's width, also when it is 0, and its height, but
// at least that metric.
void DefineBarSize(const CExpressionScope& viewAttributes, CExpressionScope& attributes,
                   const ScopeName& heightMetric);
// Defines one side of a box: the view's own number, or that metric where the view gives none or 0.
void DefineSizeOr(const CExpressionScope& viewAttributes, CExpressionScope& attributes, const ScopeName& name,
                  const ScopeName& metric);

// Added to the width of a text that gives its box the width, in pixels: what stands left and right of it.
inline constexpr std::int64_t kTextMargins = 20;

// A number cut to the 16 bits in which boxes keep their places.
inline std::int16_t CutTo16(std::int64_t number) { return static_cast<std::int16_t>(number); }

} // namespace brixen::zeve
