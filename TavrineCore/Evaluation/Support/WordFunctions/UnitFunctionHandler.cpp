// "how many km in 5 miles", "300 g flour in cups", "ppi of 1920x1080 at 24 inches", "speed of 205/55 R16 at 800 rpm".

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "Foundation/DecimalMath.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ArgumentsByKind.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/RateArithmetic.h"
#include "TavrineCore/Parsing/Primitives/Resolution.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{
    unitInUnitExpression, unitConversion, calendarUnitInTimespan, substanceWeightToVolumeConversion,
    densityOfSubstance,   screenDensity,  pixelsInLengthAtPPI,    tyreSpeed};

Answer answerOf(const std::optional<UnitExpression>& expression) {
  if (!expression || expression->value.isNaN()) return std::nullopt;
  return EvaluationResult::unitExpression(*expression);
}

/// What "in" makes of the quantity; an error for a unit of another kind.
Answer quantityIn(const Token& quantity, const Token& unit) {
  if (!unit.is(TokenType::unit)) return std::nullopt;
  const std::optional<Token> answer =
      TokenConverterFactory::converted(quantity, TokenFactory::converterToUnitWith(unit.metadata));
  if (const Answer result = answer ? resultOf(*answer) : std::nullopt) return result;
  // Of durations a unit of another kind makes nothing.
  if (quantity.is(TokenType::timespan)) return EvaluationResult::error(EvaluationError::UnitMismatch);
  return std::nullopt;
}

/// "1/2 hour" is cut into 1 and 2 hours.
Token fractionOf(const Token& numerator, const UnitExpression& denominator) {
  return TokenFactory::unitExpressionWith(numerator.decimalValue() / denominator.value, denominator.unit);
}

/// The amount that two arguments make: 1/2 hour, or 3 days and 2 hours.
Token joined(const Token& first, const Token& second) {
  const std::optional<UnitExpression> denominator = second.unitExpressionValue();
  if (first.is(TokenType::number) && denominator) return fractionOf(first, *denominator);
  return sum(first, second);
}

/// "hours in 3 days", "hours in 3 days and 2 hours", "minutes in 1/2 hour".
Answer unitIn(Arguments arguments) {
  if (arguments.size() == 3) return quantityIn(joined(arguments[1], arguments[2]), arguments[0]);
  return arguments.size() == 2 ? quantityIn(arguments[1], arguments[0]) : std::nullopt;
}

/// "5 miles is how many km", "1/2 hour is how many minutes".
Answer conversion(Arguments arguments) {
  if (arguments.size() == 3) return quantityIn(joined(arguments[0], arguments[1]), arguments[2]);
  return arguments.size() == 2 ? quantityIn(arguments[0], arguments[1]) : std::nullopt;
}

// --- Substances -------------------------------------------------------------------------------------------------

std::optional<Substance> substanceIn(Arguments arguments) {
  for (const Token& argument : arguments) {
    if (auto substance = argument.substanceValue()) return substance;
  }
  return std::nullopt;
}

/// The substance in grams for each cubic centimeter.
Answer densityIn(Arguments arguments) {
  const std::optional<Substance> substance = substanceIn(arguments);
  if (!substance) return std::nullopt;
  return EvaluationResult::unitRate(rateValueOf(*substance));
}

/// The space that a mass of the substance takes, or the mass that fills a space.
std::optional<UnitExpression> throughDensity(const UnitExpression& amount, const Substance& substance) {
  if (amount.unit.unitType() == UnitType::mass) {
    const auto grams = convertedTo(amount, UnitIdentifier::grams);
    if (!grams || substance.value.isZero()) return std::nullopt;
    return UnitExpression{grams->value / substance.value, unitOf(UnitIdentifier::cubicCentimeters)};
  }
  const auto space = convertedTo(amount, UnitIdentifier::cubicCentimeters);
  if (!space) return std::nullopt;
  return UnitExpression{space->value * substance.value, unitOf(UnitIdentifier::grams)};
}

/// An amount of a substance, and the unit that is asked for.
struct SubstanceAmount {
  UnitExpression amount;
  TCUnit wanted;
};

/// "300 g flour in cups".
std::optional<SubstanceAmount> amountIn(Arguments arguments) {
  std::optional<UnitExpression> amount = quantityOf(UnitType::mass, arguments);
  if (!amount) amount = quantityOf(UnitType::volume, arguments);
  const std::optional<TCUnit> wanted = unitAmong(arguments);
  if (!amount || !wanted) return std::nullopt;
  return SubstanceAmount{*amount, *wanted};
}

/// "a cup of sugar in grams" and "grams in a cup of sugar": the amount is one of the unit that stands before the
/// substance.
std::optional<SubstanceAmount> singleUnitIn(Arguments arguments) {
  if (arguments.size() != 3) return std::nullopt;
  const bool substanceIsLast = arguments[2].is(TokenType::substance);
  const std::optional<TCUnit> unit = arguments[substanceIsLast ? 1 : 0].unitValue();
  const std::optional<TCUnit> wanted = arguments[substanceIsLast ? 0 : 2].unitValue();
  if (!unit || !wanted) return std::nullopt;
  return SubstanceAmount{{Decimal(1), *unit}, *wanted};
}

Answer amountOfSubstance(Arguments arguments) {
  const std::optional<Substance> substance = substanceIn(arguments);
  std::optional<SubstanceAmount> asked = amountIn(arguments);
  if (!asked) asked = singleUnitIn(arguments);
  if (!substance || !asked) return std::nullopt;
  const auto& [amount, wanted] = *asked;
  // A kilo in pounds is the same of anything.
  if (wanted.unitType() == amount.unit.unitType()) return answerOf(convertedTo(amount, wanted));
  const std::optional<UnitExpression> other = throughDensity(amount, *substance);
  return other ? answerOf(convertedTo(*other, wanted)) : std::nullopt;
}

// --- Screens ----------------------------------------------------------------------------------------------------

std::optional<Decimal> lengthInInches(Arguments arguments) {
  const std::optional<UnitExpression> length = quantityOf(UnitType::length, arguments);
  const auto inches = length ? convertedTo(*length, UnitIdentifier::inches) : std::nullopt;
  return inches ? std::optional(inches->value) : std::nullopt;
}

Answer densityOfScreen(Arguments arguments) {
  const std::optional<Decimal> diagonal = lengthInInches(arguments);
  for (const Token& argument : arguments) {
    const std::optional<Resolution> resolution = argument.resolutionValue();
    if (!resolution || !diagonal) continue;
    const std::optional<Decimal> density = resolution->ppiOfDeviceWith(*diagonal);
    return density ? answerOf(UnitExpression{*density, unitOf(UnitIdentifier::ppi)}) : std::nullopt;
  }
  return std::nullopt;
}

Answer pixelsInLength(Arguments arguments) {
  const std::optional<Decimal> inches = lengthInInches(arguments);
  const std::optional<UnitExpression> density = quantityOf(UnitType::screenDensity, arguments);
  if (!inches || !density) return std::nullopt;
  return answerOf(UnitExpression{*inches * density->value, unitOf(UnitIdentifier::pixel)});
}

// --- Tyres ------------------------------------------------------------------------------------------------------

/// The numbers of "205/55" and "R16", however they were cut into tokens.
void appendNumbersOf(const Token& token, std::vector<Decimal>& numbers) {
  if (token.is(TokenType::fraction) && token.subtokens) {
    for (const Token& part : *token.subtokens) appendNumbersOf(part, numbers);
    return;
  }
  if (token.is(TokenType::literal)) {
    const std::size_t digits = token.stringValue.find_first_of("0123456789");
    if (digits == std::string::npos) return;
    if (const auto number = Decimal::parse(token.stringValue.substr(digits))) numbers.push_back(*number);
    return;
  }
  if (token.is(TokenType::number)) numbers.push_back(token.decimalValue());
}

/// A tyre as it is written on its side: 205 mm wide, a flank of 55% of that, a rim of 16 inches.
struct TyreDimensions {
  Decimal widthInMillimeters;
  Decimal aspectRatio;
  Decimal rimInInches;

  static std::optional<TyreDimensions> from(Arguments arguments) {
    std::vector<Decimal> numbers;
    for (const Token& argument : arguments) appendNumbersOf(argument, numbers);
    if (numbers.size() != 3) return std::nullopt;
    return TyreDimensions{numbers[0], numbers[1], numbers[2]};
  }

  [[nodiscard]] Decimal circumferenceInInches() const {
    constexpr auto kMillimetersPerInch = "25.4"_dec;
    const Decimal flank = widthInMillimeters * aspectRatio / Decimal(100) / kMillimetersPerInch;
    return (rimInInches + Decimal(2) * flank) * kPi;
  }
};

std::optional<Decimal> turnsPerHour(Arguments arguments) {
  std::optional<UnitExpression> rotation = quantityOf(UnitType::angularVelocity, arguments);
  if (!rotation) rotation = quantityOf(UnitType::frequency, arguments);
  const auto perMinute = rotation ? to(*rotation, unitOf(UnitIdentifier::revolutionsPerMinute)) : std::nullopt;
  return perMinute ? std::optional(perMinute->value * Decimal(60)) : std::nullopt;
}

/// The speed on the road, in the unit that road signs of the measurement system have.
Answer speedOfTyre(Arguments arguments, UnitMeasurementSystem system) {
  const auto tyre = TyreDimensions::from(arguments);
  const std::optional<Decimal> turns = turnsPerHour(arguments);
  if (!tyre || !turns) return std::nullopt;
  const bool isMetric = system == UnitMeasurementSystem::metric;
  const UnitExpression distance{tyre->circumferenceInInches() * *turns, unitOf(UnitIdentifier::inches)};
  const auto perHour = convertedTo(distance, isMetric ? UnitIdentifier::kilometers : UnitIdentifier::miles);
  if (!perHour) return std::nullopt;
  return answerOf(UnitExpression{perHour->value,
                                 unitOf(isMetric ? UnitIdentifier::kilometersPerHour : UnitIdentifier::milesPerHour)});
}

Answer evaluateUnitFunction(FunctionIdentifier identifier, Arguments arguments,
                            const EngineCustomization& customization) {
  switch (identifier) {
    case unitConversion:
      return conversion(arguments);
    case unitInUnitExpression:
    case calendarUnitInTimespan:
      return unitIn(arguments);
    case substanceWeightToVolumeConversion:
      return amountOfSubstance(arguments);
    case densityOfSubstance:
      return densityIn(arguments);
    case screenDensity:
      return densityOfScreen(arguments);
    case pixelsInLengthAtPPI:
      return pixelsInLength(arguments);
    case tyreSpeed:
      return speedOfTyre(arguments, customization.unitSystem());
    default:
      return std::nullopt;
  }
}

}  // namespace

constinit const WordFunctionHandler kUnitFunctionHandler{kHandled, evaluateUnitFunction};

}  // namespace tavrine
