#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

enum class TokenType : std::uint8_t;

/// A built-in word function: "half of 10" calls `halfOf`.
enum class FunctionIdentifier : std::uint16_t {
#define FUNCTION_IDENTIFIER(name, returnType) name,
#include "TavrineCore/Customization/Functions/FunctionIdentifier.def"
};

inline constexpr std::size_t kFunctionIdentifierCount = 0
#define FUNCTION_IDENTIFIER(name, returnType) +1
#include "TavrineCore/Customization/Functions/FunctionIdentifier.def"
    ;
static_assert(kFunctionIdentifierCount == 144);

using FunctionIdentifierSet = EnumSet<FunctionIdentifier, kFunctionIdentifierCount>;

/// Functions that ask a host's weather provider.
inline constexpr FunctionIdentifierSet weatherFunctionIdentifiers =
    FunctionIdentifierSet::fromTo(FunctionIdentifier::lowTemperature, FunctionIdentifier::moonPhase);

/// The other functions whose places may be looked up with a host's place provider.
inline constexpr FunctionIdentifierSet additonalDynamicPlaceSupportedFunctions = {
    FunctionIdentifier::timeInTimezone,
    FunctionIdentifier::dateInTimezone,
    FunctionIdentifier::differenceBetweenTimezones,
    FunctionIdentifier::gpsCoordinatesOfPlace,
    FunctionIdentifier::longitudeOfPlace,
    FunctionIdentifier::latitudeOfPlace,
    FunctionIdentifier::distanceBetweenPlaces,
    FunctionIdentifier::calendarUnitExpressionAgo,
};

/// The raw name: "halfOf".
std::string_view toString(FunctionIdentifier identifier);

/// The identifier with this raw name, if there is one.
std::optional<FunctionIdentifier> functionIdentifierNamed(std::string_view name);

/// What the function is known to give before it is evaluated, so that its phrase can stand where that type is wanted.
std::optional<TokenType> returnTypeOf(FunctionIdentifier identifier);

}  // namespace tavrine
