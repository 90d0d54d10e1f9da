#include "TavrineCore/Evaluation/PostEvaluation/AutomaticResultConverter.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineContentCache.h"
#include "TavrineCore/Customization/Units/CommonConversions.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

namespace {

using Kind = ResultConversionRule::Kind;

/// The converter into a type of token; nothing for types that nothing converts into.
std::optional<Token> converterTo(TokenType type) {
  switch (type) {
    case TokenType::number:
      return TokenFactory::converterToNumber();
    case TokenType::percentage:
      return TokenFactory::converterToPercentage();
    case TokenType::multiplier:
      return TokenFactory::converterToMultiplier();
    case TokenType::fraction:
      return TokenFactory::converterWith(TokenSubType::fractionConverter);
    case TokenType::binaryNumber:
      return TokenFactory::converterWith(TokenSubType::binaryConverter);
    case TokenType::octalNumber:
      return TokenFactory::converterWith(TokenSubType::octalConverter);
    case TokenType::hexadecimalNumber:
      return TokenFactory::converterWith(TokenSubType::hexadecimalConverter);
    case TokenType::unixTimestamp:
      return TokenFactory::converterWith(TokenSubType::timestampConverter);
    case TokenType::timespan:
      return TokenFactory::converterWith(TokenSubType::timespanConverter);
    case TokenType::laptime:
      return TokenFactory::converterWith(TokenSubType::laptimeConverter);
    case TokenType::frametime:
      return TokenFactory::converterWith(TokenSubType::frametimeConverter);
    case TokenType::datestamp:
      return TokenFactory::converterToDate();
    case TokenType::iso8601:
      return TokenFactory::converterWith(TokenSubType::iso8601Converter);
    case TokenType::pitch:
      return TokenFactory::converterWith(TokenSubType::pitchConverter);
    case TokenType::degreesMinutesSeconds:
      return TokenFactory::converterWith(TokenSubType::dmsConverter);
    default:
      return std::nullopt;
  }
}

std::optional<Token> convertedToType(const ResultConversionRule& rule, const Token& token, const EngineCustomization&) {
  if (!token.is(rule.type)) return std::nullopt;
  const std::optional<Token> converter = converterTo(rule.convertToType);
  return converter ? TokenConverterFactory::converted(token, *converter) : std::nullopt;
}

/// The identifier of the unit that the token counts in; nothing for what is no unit expression.
std::optional<UnitIdentifier> identifierOf(const Token& token) {
  const std::optional<TCUnit> unit = token.is(TokenType::unitExpression) ? token.unitValue() : std::optional<TCUnit>();
  return unit ? std::optional(unit->identifier()) : std::nullopt;
}

/// The unit as the customization's vocabulary has it, a currency with its rate; nothing where it is not in there.
std::optional<TCUnit> unitFor(UnitIdentifier identifier, const EngineCustomization& customization) {
  const std::shared_ptr<const EngineContent> content = EngineContentCache::engineContentFor(customization);
  const auto* description = content->unitList->cache().unitDescriptionFor(identifier);
  return description != nullptr ? content->unitList->preparedUnitFor(*description) : std::nullopt;
}

std::optional<Token> convertedInto(UnitIdentifier identifier, const Token& token,
                                   const EngineCustomization& customization) {
  const std::optional<TCUnit> unit = unitFor(identifier, customization);
  if (!unit) return std::nullopt;
  const Token converter = TokenFactory::converterToUnitWith(std::make_shared<const UnitTokenMetadata>(*unit));
  return TokenConverterFactory::converted(token, converter);
}

std::optional<Token> convertedOfUnitType(const ResultConversionRule& rule, const Token& token,
                                         const EngineCustomization& customization) {
  const std::optional<UnitIdentifier> identifier = identifierOf(token);
  if (!identifier || token.unitValue()->unitType() != rule.unitType || *identifier == rule.convertToUnit) {
    return std::nullopt;
  }
  return convertedInto(rule.convertToUnit, token, customization);
}

std::optional<Token> convertedOfUnit(const ResultConversionRule& rule, const Token& token,
                                     const EngineCustomization& customization) {
  if (identifierOf(token) != rule.identifier) return std::nullopt;
  return convertedInto(rule.convertToUnit, token, customization);
}

std::optional<Token> convertedToFeetAndInches(const ResultConversionRule& rule, const Token& token,
                                              const EngineCustomization&) {
  if (identifierOf(token) != rule.identifier) return std::nullopt;
  return TokenConverterFactory::converted(token, TokenFactory::converterWith(TokenSubType::feetAndInchesConverter));
}

std::optional<Token> convertedToTimespan(const ResultConversionRule& rule, const Token& token,
                                         const EngineCustomization&) {
  if (identifierOf(token) != rule.identifier) return std::nullopt;
  return TokenConverterFactory::converted(token, TokenFactory::converterWith(TokenSubType::timespanConverter));
}

/// What shows a time on the clocks of another zone.
std::optional<Token> convertedToTimezone(const ResultConversionRule& rule, const Token& token,
                                         const EngineCustomization&) {
  const auto datestamp = token.is(TokenType::datestamp) ? token.datestampValue() : std::nullopt;
  if (!datestamp || !rule.convertToTimezone || datestamp->timezone == *rule.convertToTimezone) return std::nullopt;
  if (!calendarComponentsRepresentedBy(datestamp->type).contains(Calendar::Component::hour)) return std::nullopt;
  return TokenConverterFactory::converted(token, TokenFactory::converterToTimezone(*rule.convertToTimezone));
}

using RuleEvaluation = std::optional<Token> (*)(const ResultConversionRule&, const Token&, const EngineCustomization&);

struct RuleRow {
  Kind kind;
  RuleEvaluation evaluate;
};
constexpr auto kRuleEvaluations = std::to_array<RuleRow>({
    {Kind::tokenOf, convertedToType},
    {Kind::unitExpressionOf, convertedOfUnitType},
    {Kind::unitExpressionWith, convertedOfUnit},
    {Kind::convertToTimespanUnitExpressionWith, convertedToTimespan},
    {Kind::convertToFeetAndInchesUnitExpressionWith, convertedToFeetAndInches},
    {Kind::timeWithTimezone, convertedToTimezone},
});

/// Into forms with two units.
const std::vector<ResultConversionRule>& intoCompoundTypeRules() {
  static const std::vector<ResultConversionRule> rules = {
      ResultConversionRule::convertToFeetAndInchesUnitExpressionWith(UnitIdentifier::meters),
      ResultConversionRule::convertToTimespanUnitExpressionWith(UnitIdentifier::seconds),
      ResultConversionRule::convertToTimespanUnitExpressionWith(UnitIdentifier::minutes),
  };
  return rules;
}

/// What a reader of the current locale and zone understands at once.
std::vector<ResultConversionRule> localeSensitiveRules() {
  std::vector<ResultConversionRule> rules;
  if (const std::optional<std::string> code = Locale::current().currencyCode()) {
    if (const auto currency = unitIdentifierNamed("currency" + *code)) {
      rules.push_back(ResultConversionRule::unitExpressionOf(UnitType::currency, *currency));
    }
  }
  rules.push_back(ResultConversionRule::timeWithTimezone(TimeZone::current()));
  rules.push_back(ResultConversionRule::tokenOf(TokenType::hexadecimalNumber, TokenType::number));
  rules.push_back(ResultConversionRule::tokenOf(TokenType::octalNumber, TokenType::number));
  rules.push_back(ResultConversionRule::tokenOf(TokenType::binaryNumber, TokenType::number));
  return rules;
}

/// What a unit expression is converted by before anything that holds of all values; nothing for other units.
std::optional<Token> convertedByUnit(const Token& operand,
                                     const AutomaticResultConverter::ResultConversionRuleProcessor& processor) {
  const std::optional<UnitIdentifier> identifier = identifierOf(operand);
  if (!identifier) return std::nullopt;
  if (identifier == UnitIdentifier::seconds || identifier == UnitIdentifier::minutes ||
      identifier == UnitIdentifier::meters) {
    return processor.process(intoCompoundTypeRules(), operand);
  }
  const std::optional<UnitIdentifier> partner = mostCommonConversionOf(*identifier);
  if (!partner) return std::nullopt;
  const ResultConversionRule rule = ResultConversionRule::unitExpressionWith(*identifier, *partner);
  return processor.process({&rule, 1}, operand);
}

}  // namespace

std::optional<Token> AutomaticResultConverter::ResultConversionRuleProcessor::process(
    std::span<const ResultConversionRule> rules, const Token& token) const {
  for (const ResultConversionRule& rule : rules) {
    const RuleEvaluation evaluate = kRuleEvaluations[static_cast<std::size_t>(rule.kind)].evaluate;
    if (std::optional<Token> converted = evaluate(rule, token, customization_)) return converted;
  }
  return std::nullopt;
}

AutomaticResultConverter::AutomaticResultConverter(ResultConversionBehavior resultConversionStyle, const Token& operand,
                                                   const EngineCustomization& customization)
    : resultConversionStyle_(std::move(resultConversionStyle)), operand_(operand), customization_(customization) {}

std::optional<Token> AutomaticResultConverter::finalValue() const {
  if (isBlank(operand_)) return std::nullopt;
  const ResultConversionRuleProcessor processor(customization_);
  switch (resultConversionStyle_.kind()) {
    case ResultConversionBehavior::Kind::none:
      return std::nullopt;
    case ResultConversionBehavior::Kind::customRules:
      return processor.process(resultConversionStyle_.rules(), operand_);
    case ResultConversionBehavior::Kind::automatic:
      if (std::optional<Token> converted = convertedByUnit(operand_, processor)) return converted;
      return processor.process(localeSensitiveRules(), operand_);
  }
  return std::nullopt;
}

}  // namespace tavrine
