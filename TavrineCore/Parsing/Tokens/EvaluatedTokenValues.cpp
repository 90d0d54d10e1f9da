// Values of tokens that may have to be evaluated first. Apart from the others, since these need the evaluators.

#include <utility>

#include "Foundation/Diagnostics.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

Decimal Token::decimalValue() const {
  if (const std::optional<Decimal> own = ownDecimalValue()) return *own;
  if (is(TokenType::boolean)) return Decimal();
  if (subtokens) {
    if (is(TokenType::fraction)) return evaluate(*subtokens).decimalValue();
    if (is(TokenType::unixTimestamp)) {
      if (const Token* last = subtokens->getLastToken(/*ignoringWhitespace=*/true)) return last->decimalValue();
    }
  }
  if (is(TokenType::subexpression)) {
    // A subexpression that comes to a subexpression again comes to nothing, and must not be asked for ever.
    const Token answer = evaluated();
    if (!answer.is(TokenType::subexpression)) return answer.decimalValue();
  }
  diagnose("Warning: No decimal value for " + describe(*this));
  return Decimal();
}

std::optional<Decimal> Token::number() const {
  return hasDecimalValue() ? std::optional(decimalValue()) : std::nullopt;
}

bool Token::booleanValue() const {
  if (is(TokenType::boolean)) return subType != TokenSubType::false_;
  return !decimalValue().isZero();
}

Percentage Token::percentageValue() const {
  if (const auto* it = metadataAs<PercentageTokenMetadata>()) return it->percentage;
  return Percentage{decimalValue()};
}

std::optional<Datestamp> Token::datestampValue() const {
  if (const auto* it = metadataAs<DatestampTokenMetadata>()) return it->datestamp;
  if (is(TokenType::number)) return datestampOfUnixTime(decimalValue());
  if (!is(TokenType::subexpression)) return std::nullopt;
  const Token answer = evaluated();
  return answer.is(TokenType::subexpression) ? std::nullopt : answer.datestampValue();
}

std::optional<Variable> Token::variable() const {
  if (const auto* it = metadataAs<HashtagTokenMetadata>()) return it->hashTag;
  if (metadataAs<VariableDeclarationTokenMetadata>() != nullptr) return declaredVariableOf(*this);
  if (const auto* it = metadataAs<VariableTokenMetadata>()) return it->variable;
  return std::nullopt;
}

std::optional<Token> Token::expandedVariable() const {
  if (is(TokenType::variable)) {
    const auto* it = metadataAs<VariableTokenMetadata>();
    return it != nullptr ? tokenOfDefinition(it->variable) : std::nullopt;
  }
  if (is(TokenType::subsheet)) {
    const auto* it = metadataAs<SubsheetTokenMetadata>();
    return it != nullptr ? tokenOfResult(it->subsheet) : std::nullopt;
  }
  return std::nullopt;
}

Token Token::negated() const {
  switch (type) {
    case TokenType::fraction: {
      const auto* it = metadataAs<FractionTokenMetadata>();
      if (it != nullptr) {
        return TokenFactory::fractionWith({it->fraction.decimalValue.negated(), it->fraction.unitValue});
      }
      return TokenFactory::fractionWith({decimalValue().negated(), std::nullopt});
    }
    case TokenType::number: {
      const auto* it = metadataAs<NumberTokenMetadata>();
      return it != nullptr ? TokenFactory::numberWith(it->decimalValue.negated(), it->scalar) : *this;
    }
    case TokenType::unitExpression: {
      const auto* it = metadataAs<UnitExpressionTokenMetadata>();
      if (it == nullptr) return *this;
      return TokenFactory::unitExpressionWith(it->numericValue.decimalValue.negated(), it->numericValue.scalar,
                                              it->unitMetaData.underlyingTCUnit, it->prefersCompoundFormatting);
    }
    case TokenType::percentage:
      return TokenFactory::percentageWith(decimalValue().negated());
    case TokenType::boolean:
      return TokenFactory::booleanWith(!booleanValue());
    case TokenType::rate: {
      const auto* it = metadataAs<UnitRateTokenMetadata>();
      if (it == nullptr) return *this;
      UnitRate rate = it->rate;
      rate.value = rate.value.negated();
      return TokenFactory::rateWith(std::make_shared<UnitRateTokenMetadata>(std::move(rate)));
    }
    default:
      return *this;
  }
}

}  // namespace tavrine
