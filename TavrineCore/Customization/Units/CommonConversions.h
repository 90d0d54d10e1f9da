#pragma once

#include <optional>

#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

/// The unit into which people mostly convert the unit: miles for kilometers, and kilometers for miles. Some lead one
/// way only: feet to meters, meters to yards.
std::optional<UnitIdentifier> mostCommonConversionOf(UnitIdentifier identifier);

}  // namespace tavrine
