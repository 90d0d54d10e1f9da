#pragma once

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

/// Whole powers up to 3 where the units have a product, their reciprocals, and the roots of areas and volumes; an
/// `error` for all others. A power above 1 that isn't whole keeps the unit: (4 m)^1.5 is 8 m.
[[nodiscard]] EvaluationResult toPower(const UnitExpression& expression, const Decimal& power);

/// 1, 0 and negative powers; the power is rounded to a whole one.
[[nodiscard]] EvaluationResult toPower(const UnitRate& rate, const Decimal& power);

}  // namespace tavrine
