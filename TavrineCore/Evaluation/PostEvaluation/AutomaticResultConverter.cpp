#include "TavrineCore/Evaluation/PostEvaluation/AutomaticResultConverter.h"

#include <array>
#include <utility>
#include <vector>

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

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

std::optional<Token> convertedToType(const ResultConversionRule& rule, const Token& token) {
  if (!token.is(rule.type)) return std::nullopt;
  const std::optional<Token> converter = converterTo(rule.convertToType);
  return converter ? TokenConverterFactory::converted(token, *converter) : std::nullopt;
}

using RuleEvaluation = std::optional<Token> (*)(const ResultConversionRule&, const Token&);

struct RuleRow {
  Kind kind;
  /// Null while nothing converts such values: the rule fits no token.
  RuleEvaluation evaluate = nullptr;
};
constexpr auto kRuleEvaluations = std::to_array<RuleRow>({
    {Kind::tokenOf, convertedToType},
    {Kind::unitExpressionOf},
    {Kind::unitExpressionWith},
    {Kind::convertToTimespanUnitExpressionWith},
    {Kind::convertToFeetAndInchesUnitExpressionWith},
    {Kind::timeWithTimezone},
});

const std::vector<ResultConversionRule>& localeSensitiveRules() {
  static const std::vector<ResultConversionRule> rules = {
      ResultConversionRule::tokenOf(TokenType::hexadecimalNumber, TokenType::number),
      ResultConversionRule::tokenOf(TokenType::octalNumber, TokenType::number),
      ResultConversionRule::tokenOf(TokenType::binaryNumber, TokenType::number),
  };
  return rules;
}

}  // namespace

std::optional<Token> AutomaticResultConverter::ResultConversionRuleProcessor::process(
    std::span<const ResultConversionRule> rules, const Token& token) const {
  for (const ResultConversionRule& rule : rules) {
    const RuleEvaluation evaluate = kRuleEvaluations[static_cast<std::size_t>(rule.kind)].evaluate;
    if (evaluate == nullptr) continue;
    if (std::optional<Token> converted = evaluate(rule, token)) return converted;
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
      return processor.process(localeSensitiveRules(), operand_);
  }
  return std::nullopt;
}

}  // namespace tavrine
