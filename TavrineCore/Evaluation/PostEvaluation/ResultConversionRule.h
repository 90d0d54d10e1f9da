#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "Foundation/TimeZone.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

enum class UnitIdentifier : std::uint16_t;
enum class UnitType : std::uint8_t;

/// Into what a lone value is turned before it is shown: "lengths into miles", "a time into that of Tokyo". The
/// operands that a kind doesn't name keep their zero values.
struct ResultConversionRule {
  enum class Kind : std::uint8_t {
    tokenOf,             ///< a token of `type` into `convertToType`
    unitExpressionOf,    ///< a unit expression of `unitType`, in any unit but `convertToUnit`, into that unit
    unitExpressionWith,  ///< a unit expression in the unit `identifier` into `convertToUnit`
    convertToTimespanUnitExpressionWith,       ///< a unit expression in `identifier` into a timespan
    convertToFeetAndInchesUnitExpressionWith,  ///< a unit expression in `identifier` into feet and inches
    timeWithTimezone,                          ///< a datestamp that shows a time into `convertToTimezone`
  };

  [[nodiscard]] static ResultConversionRule tokenOf(TokenType type, TokenType convertToType);
  [[nodiscard]] static ResultConversionRule unitExpressionOf(UnitType unitType, UnitIdentifier convertToUnit);
  [[nodiscard]] static ResultConversionRule unitExpressionWith(UnitIdentifier identifier, UnitIdentifier convertToUnit);
  [[nodiscard]] static ResultConversionRule convertToTimespanUnitExpressionWith(UnitIdentifier identifier);
  [[nodiscard]] static ResultConversionRule convertToFeetAndInchesUnitExpressionWith(UnitIdentifier identifier);
  [[nodiscard]] static ResultConversionRule timeWithTimezone(TimeZone convertToTimezone);

  Kind kind{};
  TokenType type{};
  TokenType convertToType{};
  UnitType unitType{};
  UnitIdentifier identifier{};
  UnitIdentifier convertToUnit{};
  std::optional<TimeZone> convertToTimezone;

  [[nodiscard]] std::size_t hash() const;
  friend bool operator==(const ResultConversionRule&, const ResultConversionRule&) = default;
};

}  // namespace tavrine

template <>
struct std::hash<tavrine::ResultConversionRule> {
  std::size_t operator()(const tavrine::ResultConversionRule& rule) const { return rule.hash(); }
};
