#pragma once

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

struct EngineFeatureFlags;

/// The converter that the name of a type asks for: "fraction" in "as a fraction". `notSpecified` for a type that
/// nothing can be converted to, or that a feature flag has switched off.
TokenSubType converterTypeOf(const Token& typeName, const EngineFeatureFlags& features);

}  // namespace tavrine
