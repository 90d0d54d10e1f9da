#pragma once

#include <string_view>

#include "TavrineCore/Evaluation/EvaluationResult.h"

namespace tavrine {

/// What the text comes to as a line by itself, under the basic customization and without any variables.
///
/// Declared on this floor for values that are text ("x = 5 km" held as words); defined with the calculator.
[[nodiscard]] EvaluationResult resultOfText(std::string_view text);

}  // namespace tavrine
