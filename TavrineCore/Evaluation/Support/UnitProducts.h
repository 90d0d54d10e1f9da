#pragma once

#include <optional>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

// Products and quotients, which choose the kind of their result. They stand above the values for that reason.
namespace tavrine {

/// A quantity of the product's unit, what is left of a rate, or the `error` that there is no such product.
[[nodiscard]] EvaluationResult multiplied(const UnitExpression& left, const UnitExpression& right);

/// A quantity of the quotient's unit, a plain number for units of one kind, what is left of a unit by another, else a
/// rate.
[[nodiscard]] EvaluationResult divided(const UnitExpression& top, const UnitExpression& bottom);

/// A plain number for rates of the same kinds, else the product with the second rate turned over.
[[nodiscard]] EvaluationResult divided(const UnitRate& top, const UnitRate& bottom);

/// The rate as something simpler, where it is: 500 m for each km are 0.5, 2 for each hertz 2 seconds. What is counted
/// by time stays a rate, even if it is time itself.
[[nodiscard]] std::optional<EvaluationResult> resolved(const UnitRate& rate);

}  // namespace tavrine
