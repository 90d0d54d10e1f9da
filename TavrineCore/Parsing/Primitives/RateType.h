#pragma once

#include <variant>

#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

/// A rate of any of the three kinds, as read from a token.
using RateType = std::variant<DecimalRate, PercentageRate, UnitRate>;

}  // namespace tavrine
