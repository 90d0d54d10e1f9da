// The two forms of a value, and the ways between them: tokens, on which the engine calculates, and results, which it
// answers with and keeps.

#include <memory>
#include <utility>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Primitives/ISO8601.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/RateType.h"
#include "TavrineCore/Parsing/Primitives/Resolution.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Primitives/Subsheet.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/Timestamp.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRange.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

namespace {

using Case = EvaluationResultCase;

template <class Value>
EvaluationResult resultOf(EvaluationResult (*make)(Value), std::optional<Value> value) {
  return value ? make(std::move(*value)) : EvaluationResult::none();
}

EvaluationResult resultOfNumber(const Token& token) {
  const auto* number = token.metadataAs<NumberTokenMetadata>();
  const bool isScientific = number != nullptr && number->alwaysFormatAsScientificNotation;
  return isScientific ? EvaluationResult::scientificNotation(token.decimalValue())
                      : EvaluationResult::decimal(token.decimalValue());
}

EvaluationResult resultOfRate(const Token& token) {
  switch (token.subType) {
    case TokenSubType::decimalRate:
      return resultOf(EvaluationResult::decimalRate, token.decimalRateValue());
    case TokenSubType::unitRate:
      return resultOf(EvaluationResult::unitRate, token.unitRateValue());
    case TokenSubType::percentageRate:
      return resultOf(EvaluationResult::percentageRate, token.percentageRateValue());
    default:
      return EvaluationResult::none();
  }
}

/// The members are worked out here, since they may be brackets.
EvaluationResult resultOfList(const Token& token) {
  auto members = std::make_shared<std::vector<EvaluationResult>>();
  if (token.subtokens) {
    for (const Token& item : *token.subtokens) {
      EvaluationResult result = item.evaluated().evaluationResult();
      if (!result.is(Case::none)) members->push_back(std::move(result));
    }
  }
  return EvaluationResult::list(List{std::move(members)});
}

EvaluationResult resultOfIso8601(const Token& token) {
  const std::optional<Datestamp> datestamp = token.datestampValue();
  return datestamp ? EvaluationResult::iso8601(iso8601{*datestamp}) : EvaluationResult::none();
}

EvaluationResult resultOfUnitRange(const Token& token) {
  const auto* range = token.metadataAs<UnitRangeTokenMetadata>();
  if (range == nullptr) return EvaluationResult::none();
  return EvaluationResult::unitRange(UnitRange{range->lowerBound.scaledValue(), range->upperBound.scaledValue(),
                                               range->unitMetadata.underlyingTCUnit});
}

EvaluationResult resultOfCustomType(const Token& token) {
  const auto* metadata = token.metadataAs<CustomTypeTokenMetadata>();
  return metadata != nullptr ? EvaluationResult::customType(metadata->customType) : EvaluationResult::none();
}

CalendarEnvironment currentEnvironment() { return CalendarEnvironment(Calendar::current()); }

Token literal(std::string text) { return Token(TokenType::literal, std::move(text), NSRange::zero); }

}  // namespace

EvaluationResult Token::evaluationResult() const {
  if (const std::optional<EvaluationError> error = errorValue()) return EvaluationResult::error(*error);
  switch (type) {
    case TokenType::number:
      return resultOfNumber(*this);
    case TokenType::binaryNumber:
      return resultOf(EvaluationResult::binary, binaryValue());
    case TokenType::octalNumber:
      return resultOf(EvaluationResult::octal, octalValue());
    case TokenType::hexadecimalNumber:
      return resultOf(EvaluationResult::hex, hexValue());
    case TokenType::percentage:
      return EvaluationResult::percentage(percentageValue());
    case TokenType::salesTax:
      return resultOf(EvaluationResult::salesTax, salesTaxValue());
    case TokenType::fraction:
      return resultOf(EvaluationResult::fraction, fractionValue());
    case TokenType::multiplier:
      return EvaluationResult::multiplier(Multiplier{decimalValue()});
    case TokenType::boolean:
      return EvaluationResult::boolean(subType == TokenSubType::true_);
    case TokenType::unitExpression:
      if (auto expression = unitExpressionValue()) return EvaluationResult::unitExpression(std::move(*expression));
      break;
    case TokenType::rate:
      return resultOfRate(*this);
    case TokenType::unit:
      return resultOf(EvaluationResult::unit, unitValue());
    case TokenType::substance:
      return resultOf(EvaluationResult::substance, substanceValue());
    case TokenType::datestamp:
      return resultOf(EvaluationResult::date, datestampValue());
    case TokenType::iso8601:
      return resultOfIso8601(*this);
    case TokenType::datespan:
      return resultOf(EvaluationResult::datespan, datespanValue());
    case TokenType::timespan:
      return resultOf(EvaluationResult::timespan, timespanValue());
    case TokenType::laptime:
      return resultOf(EvaluationResult::laptime, laptimeValue());
    case TokenType::frametime:
      return resultOf(EvaluationResult::frametime, frametimeValue());
    case TokenType::unixTimestamp:
      return EvaluationResult::timestamp(Timestamp{decimalValue()});
    case TokenType::timezone:
      return resultOf(EvaluationResult::place, placeValue());
    case TokenType::gpsCoordinates:
      return resultOf(EvaluationResult::gpsCoordinates, gpsCoordinatesValue());
    case TokenType::degreesMinutesSeconds:
      return resultOf(EvaluationResult::degreesMinutesSeconds, dmsValue());
    case TokenType::pitch:
      return resultOf(EvaluationResult::pitch, pitchValue());
    case TokenType::resolution:
      return resultOf(EvaluationResult::resolution, resolutionValue());
    case TokenType::statisticType:
      return resultOf(EvaluationResult::statisticType, statisticType());
    case TokenType::unitRange:
      return resultOfUnitRange(*this);
    case TokenType::customType:
      return resultOfCustomType(*this);
    case TokenType::list:
      return resultOfList(*this);
    case TokenType::variable:
      return resultOf(EvaluationResult::variable, variable());
    case TokenType::literal:
      return EvaluationResult::rawString(stringValue);
    case TokenType::dynamicPlace:
      return EvaluationResult::dynamicPlace(stringValue);
    case TokenType::pending:
      return EvaluationResult::pending();
    case TokenType::failed:
      return EvaluationResult::failed();
    default:
      break;
  }
  return hasDecimalValue() ? EvaluationResult::decimal(decimalValue()) : EvaluationResult::none();
}

Token EvaluationResult::tokenized() const {
  switch (kind_) {
    case Case::rawString:
      return literal(*as<Case::rawString>());
    case Case::dynamicPlace:
      return literal(*as<Case::dynamicPlace>());
    case Case::decimal:
      return TokenFactory::numberWith(*as<Case::decimal>());
    case Case::scientificNotation:
      return TokenFactory::numberWith(*as<Case::scientificNotation>());
    case Case::percentage:
      return TokenFactory::percentageWith(as<Case::percentage>()->decimalValue);
    case Case::fraction:
      return TokenFactory::fractionWith(*as<Case::fraction>());
    case Case::binary:
      return TokenFactory::binaryWith(*as<Case::binary>());
    case Case::octal:
      return TokenFactory::octalWith(*as<Case::octal>());
    case Case::hex:
      return TokenFactory::hexWith(*as<Case::hex>());
    case Case::multiplier:
      return TokenFactory::multiplierWith(as<Case::multiplier>()->decimalValue);
    case Case::boolean:
      return TokenFactory::booleanWith(*as<Case::boolean>());
    case Case::unitExpression: {
      const UnitExpression& expression = *as<Case::unitExpression>();
      return TokenFactory::unitExpressionWith(expression.value, expression.unit,
                                              expression.prefersCompoundUnitFormatting);
    }
    case Case::decimalRate:
      return TokenFactory::rateWith(std::make_shared<DecimalRateTokenMetadata>(*as<Case::decimalRate>()));
    case Case::unitRate:
      return TokenFactory::rateWith(std::make_shared<UnitRateTokenMetadata>(*as<Case::unitRate>()));
    case Case::percentageRate:
      return TokenFactory::rateWith(std::make_shared<PercentageRateTokenMetadata>(*as<Case::percentageRate>()));
    case Case::unitRange:
      return TokenFactory::unitRangeWith(*as<Case::unitRange>());
    case Case::date:
      return TokenFactory::datestampWith(*as<Case::date>(), currentEnvironment());
    case Case::datespan:
      return TokenFactory::datespanWith(*as<Case::datespan>());
    case Case::iso8601:
      return TokenFactory::iso8601With(as<Case::iso8601>()->datestamp);
    case Case::timestamp:
      return TokenFactory::timestampWith(as<Case::timestamp>()->decimalValue, currentEnvironment());
    case Case::timespan:
      return TokenFactory::timespanWith(*as<Case::timespan>());
    case Case::laptime:
      return TokenFactory::laptimeWith(*as<Case::laptime>());
    case Case::frametime:
      return TokenFactory::frametimeWith(*as<Case::frametime>());
    case Case::gpsCoordinates:
      return TokenFactory::gpsCoordinatesWith(*as<Case::gpsCoordinates>());
    case Case::degreesMinutesSeconds:
      return TokenFactory::dmsWith(*as<Case::degreesMinutesSeconds>());
    case Case::salesTax:
      return TokenFactory::salesTaxWith(*as<Case::salesTax>());
    case Case::pitch:
      return TokenFactory::pitchWith(*as<Case::pitch>());
    case Case::unit:
      return TokenFactory::unitWith(*as<Case::unit>());
    case Case::substance:
      return TokenFactory::substanceWith(*as<Case::substance>());
    case Case::place:
      return TokenFactory::placeWith(*as<Case::place>());
    case Case::statisticType:
      return TokenFactory::statisticTypeWith(*as<Case::statisticType>());
    case Case::error:
      return errorToken(*as<Case::error>());
    case Case::variable: {
      const Variable& variable = *as<Case::variable>();
      return variable.definition ? variable.definition->tokenized() : TokenFactory::variable(variable);
    }
    case Case::customUnit:
      return TokenFactory::customUnitWith(*as<Case::customUnit>());
    case Case::pending:
      return pendingToken();
    case Case::failed:
      return failedToken();
    case Case::resolution:
    case Case::customType:
    case Case::list:
    case Case::none:
      break;
  }
  return Token();
}

Token tokenOf(const EvaluationResult& result) { return result.tokenized(); }

std::optional<Token> tokenOfDefinition(const Variable& variable) {
  if (!variable.definition) return std::nullopt;
  return variable.definition->tokenized();
}

std::optional<Token> tokenOfResult(const Subsheet& subsheet) {
  if (!subsheet.result) return std::nullopt;
  return subsheet.result->evaluationResult.tokenized();
}

std::optional<Variable> declaredVariableOf(const Token& declaration) {
  const EvaluationResult result = declaration.evaluated().evaluationResult();
  const Variable* variable = result.variableValue();
  if (variable == nullptr) return std::nullopt;
  return *variable;
}

}  // namespace tavrine
