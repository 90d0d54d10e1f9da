#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

struct CustomUnit;
struct UnitRange;

/// Makes tokens of values: every intermediate result of a calculation is a token again. A made token stands in no text,
/// so its range is {0, 0}; where it is compound it has the subtokens that a typed one would have, so that the engine
/// can walk it as if it had been parsed.
class TokenFactory {
 public:
  // --- Numbers ----------------------------------------------------------------------------------------------------
  [[nodiscard]] static Token binaryWith(std::uint64_t value);
  [[nodiscard]] static Token octalWith(std::uint64_t value);
  [[nodiscard]] static Token hexWith(std::uint64_t value);
  [[nodiscard]] static Token numberWith(const Decimal& value, std::optional<std::string> scalar = std::nullopt);
  [[nodiscard]] static Token scientificNotationWith(const Decimal& value);
  [[nodiscard]] static Token fractionWith(const Fraction& fraction);
  [[nodiscard]] static Token booleanWith(bool value);
  [[nodiscard]] static Token multiplierWith(const Decimal& value);
  /// `fraction`: 0.2 for 20%.
  [[nodiscard]] static Token percentageWith(const Decimal& fraction);
  [[nodiscard]] static Token salesTaxWith(const SalesTax& salesTax);

  // --- Units and rates --------------------------------------------------------------------------------------------
  [[nodiscard]] static Token unitWith(const TCUnit& unit);
  [[nodiscard]] static Token unitRangeWith(const UnitRange& unitRange);
  [[nodiscard]] static Token unitExpressionWith(const Decimal& numericValue, const TCUnit& unit,
                                                bool prefersCompoundFormatting = false);
  [[nodiscard]] static Token unitExpressionWith(const Decimal& numericValue, std::optional<std::string> scalar,
                                                const TCUnit& unit, bool prefersCompoundFormatting = false);
  /// Of a result that a calculation with units gave. What is no unit expression comes back inside a `customInternal`
  /// token.
  [[nodiscard]] static Token unitExpressionWith(const EvaluationResult& unitCalculationResult,
                                                bool prefersCompoundFormatting);
  [[nodiscard]] static Token customUnitWith(const CustomUnit& customUnit);
  [[nodiscard]] static Token substanceWith(const Substance& value);
  /// A rate of the kind that the metadata tells: of a unit, of a percentage, of a plain number. The blank token for
  /// metadata of anything else.
  [[nodiscard]] static Token rateWith(TokenMetadataRef metadata);

  // --- Dates, times and places ------------------------------------------------------------------------------------
  /// In the current calendar, without holidays.
  [[nodiscard]] static Token iso8601With(const Datestamp& datestamp);
  [[nodiscard]] static Token datestampWith(const Datestamp& datestamp, const CalendarEnvironment& environment);
  [[nodiscard]] static Token datespanWith(const Datespan& datespan);
  [[nodiscard]] static Token timestampWith(const Decimal& value, const CalendarEnvironment& environment);
  [[nodiscard]] static Token timespanWith(const Timespan& timespan);
  [[nodiscard]] static Token laptimeWith(const Laptime& laptime);
  [[nodiscard]] static Token frametimeWith(const Frametime& frametime);
  [[nodiscard]] static Token placeWith(const Place& place);
  [[nodiscard]] static Token timezoneWith(const TimeZone& timezone);
  [[nodiscard]] static Token gpsCoordinatesWith(const GPSCoordinates& gpsCoordinates);
  [[nodiscard]] static Token dmsWith(const DegreesMinutesSeconds& dms);

  // --- The rest ---------------------------------------------------------------------------------------------------
  [[nodiscard]] static Token pitchWith(const Pitch& pitch);
  [[nodiscard]] static Token statisticTypeWith(StatisticType statistic);
  [[nodiscard]] static Token variable(const Variable& variable);
  [[nodiscard]] static Token functionExpressionWith(std::string_view functionName, const Token& bodySubexpression);
  /// The tokens between brackets, as one token that evaluates like one that was typed.
  [[nodiscard]] static Token subexpressionWith(std::vector<Token> tokens);

  /// The value in the shape of the template: 30 like "20%" is "30%". Nothing for a template that is no number,
  /// fraction, unit expression, percentage or rate.
  [[nodiscard]] static std::optional<Token> tokenWith(const Decimal& decimalValue, const Token& matchingTypeOf);

  // --- Converters: append one to a list to convert its result ------------------------------------------------------
  /// The metadata of a unit; the blank token for any other.
  [[nodiscard]] static Token converterToUnitWith(const TokenMetadataRef& metadata);
  [[nodiscard]] static Token converterToDurationUnitWith(const TCUnit& unit);
  [[nodiscard]] static Token converterToNumber();
  [[nodiscard]] static Token converterToMultiplier();
  [[nodiscard]] static Token converterToDate();
  [[nodiscard]] static Token converterToTimezone(const TimeZone& timezone);
  [[nodiscard]] static Token converterToPercentage();
  [[nodiscard]] static Token converterToRate(const UnitRate& unitRate);
  [[nodiscard]] static Token converterThatAppliesPercent();
  [[nodiscard]] static Token converterWith(TokenSubType subType);
};

}  // namespace tavrine
