#include "UnitTokens.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::testing {

namespace {

Decimal numberIn(std::string_view text) {
  const std::optional<Decimal> number = Decimal::parse(text);
  if (!number) throw std::invalid_argument("no number: " + std::string(text));
  return *number;
}

template <class Metadata, class Rate>
Token rateToken(Rate rate) {
  return TokenFactory::rateWith(std::make_shared<const Metadata>(std::move(rate)));
}

/// "5 kilometers" before and "hours" behind the stroke.
Token rateOf(std::string_view counted, std::string_view per) {
  const TCUnit perUnit = unitWithName(per);
  if (counted.ends_with('%')) {
    counted.remove_suffix(1);
    return rateToken<PercentageRateTokenMetadata>(
        PercentageRate{Percentage{numberIn(counted) / Decimal(100)}, perUnit});
  }
  const std::size_t blank = counted.find(' ');
  if (blank == std::string_view::npos) {
    return rateToken<DecimalRateTokenMetadata>(DecimalRate{numberIn(counted), perUnit});
  }
  return rateToken<UnitRateTokenMetadata>(
      UnitRate{numberIn(counted.substr(0, blank)), unitWithName(counted.substr(blank + 1)), perUnit});
}

}  // namespace

TCUnit unitWithName(std::string_view rawName) {
  const std::optional<UnitIdentifier> identifier = unitIdentifierNamed(rawName);
  if (!identifier) throw std::invalid_argument("no unit: " + std::string(rawName));
  return TCUnitFor(*identifier);
}

Token valueToken(std::string_view text) {
  if (const std::size_t stroke = text.find(" / "); stroke != std::string_view::npos) {
    return rateOf(text.substr(0, stroke), text.substr(stroke + 3));
  }
  if (const auto pitch = Pitch::fromNotation(text)) return TokenFactory::pitchWith(*pitch);
  if (text.ends_with('%'))
    return TokenFactory::percentageWith(numberIn(text.substr(0, text.size() - 1)) / Decimal(100));
  const std::size_t blank = text.find(' ');
  if (blank == std::string_view::npos) return TokenFactory::numberWith(numberIn(text));
  return TokenFactory::unitExpressionWith(numberIn(text.substr(0, blank)), unitWithName(text.substr(blank + 1)));
}

std::string describeValue(const Token& token) {
  const auto nameOf = [](const TCUnit& unit) { return std::string(toString(unit.identifier())); };
  if (const auto expression = token.unitExpressionValue()) {
    return expression->value.description() + ' ' + nameOf(expression->unit) +
           (expression->prefersCompoundUnitFormatting ? " (compound)" : "");
  }
  if (const auto rate = token.unitRateValue()) {
    return rate->value.description() + (rate->ofUnit ? ' ' + nameOf(*rate->ofUnit) : "") + " / " +
           nameOf(rate->perUnit);
  }
  if (const auto rate = token.percentageRateValue()) {
    return (rate->percentage.decimalValue * Decimal(100)).description() + "% / " + nameOf(rate->perUnit);
  }
  if (const auto rate = token.decimalRateValue()) return rate->value.description() + " / " + nameOf(rate->perUnit);
  if (const auto dms = token.dmsValue()) {
    return dms->degrees.description() + "° " + dms->minutes.description() + "′ " + dms->seconds.description() + "″";
  }
  if (const auto pitch = token.pitchValue()) return pitch->notationString();
  return describeResult(token.evaluationResult());
}

}  // namespace tavrine::testing
