// Numbers with a sign, a word or another number beside them: "-5", "2 dp", "20%", "5 % 3", "1920x1080", "3/4".

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

bool isNumberAt(const TokenList& list, std::optional<std::size_t> index) {
  return index && list[*index].is(TokenType::number);
}

/// The number that the word at `index` stands behind, white space aside.
std::optional<std::size_t> numberBefore(const TokenList& list, std::size_t index) {
  const auto before = list.indexBefore(index, /*ignoreWhitespace=*/true);
  return isNumberAt(list, before) ? before : std::nullopt;
}

}  // namespace

void identifyDecimalPointSpecifiers(TokenList& list, const PassContext&) {
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::typeName, TokenSubType::numberTypeName) &&
        !list[i].is(TokenType::typeName, TokenSubType::decimalPlacesTypeName)) {
      continue;
    }
    const auto number = numberBefore(list, i);
    if (!number) continue;
    auto metadata = std::make_shared<const DpQuantityTokenMetadata>(numberIn(list[*number]));
    list.replaceRun(
        *number, i,
        list.slice(*number, i)
            .embedInContainerToken(TokenType::dpSpecifier, TokenSubType::notSpecified, std::move(metadata)));
    i = *number;
  }
}

// --- Signs ----------------------------------------------------------------------------------------------------------

void identifyUnaryMinusNumbersIn(TokenList& list, const PassContext&) {
  for (std::size_t i = list.count(); i-- > 1;) {
    if (!list[i].is(TokenType::number)) continue;
    if (!list[i - 1].is(TokenType::operator_, TokenSubType::subtractionOperator)) continue;
    const auto* metadata = list[i].metadataAs<NumberTokenMetadata>();
    if (metadata == nullptr || metadata->decimalValue.isZero()) continue;
    // "3 -5" subtracts, and so does "3 km -5".
    const Token* operand = list.tokenBefore(i - 1, /*ignoreWhitespace=*/true);
    if (operand != nullptr &&
        (TokenTypeSet::validAnswerProducingTypes.contains(operand->type) || operand->is(TokenType::unit))) {
      continue;
    }
    NumberTokenMetadata negated = *metadata;
    negated.decimalValue = negated.decimalValue.negated();
    TokenSlice slice = list.slice(i - 1, i);
    std::string text = slice.stringValue();
    const NSRange range = slice.range();
    list.replaceRun(
        i - 1, i, numberToken(std::move(negated), std::move(text), range, TokenList::frozen(std::move(slice.tokens))));
    --i;  // the new number is no candidate: "--5" keeps its first minus
  }
}

// --- Percentages ----------------------------------------------------------------------------------------------------

namespace {

void replaceByPercentage(TokenList& list, std::size_t number, std::size_t last) {
  auto metadata = std::make_shared<const PercentageTokenMetadata>(Percentage{numberIn(list[number]) / Decimal(100)});
  list.replaceRun(number, last,
                  list.slice(number, last)
                      .embedInContainerToken(TokenType::percentage, TokenSubType::notSpecified, std::move(metadata)));
}

/// A word that counts nothing in "five apples" counts in "five percent".
std::optional<std::size_t> numberBeforePercent(const TokenList& list, std::size_t percent) {
  const auto number = list.indexBefore(percent, /*ignoreWhitespace=*/true);
  if (!number) return std::nullopt;
  const bool isWord = list[*number].is(TokenType::numberWord) && list[*number].hasDecimalValue();
  return isWord || list[*number].is(TokenType::number) ? number : std::nullopt;
}

enum class PercentForm : bool { signDirectlyBehind, signBehindBlank };  // "10%", "10 %"

/// The percent signs with a number in front, in this form, from the first to the last.
std::vector<std::size_t> percentSignsBehindNumbers(const TokenList& list, PercentForm form) {
  const std::size_t distance = form == PercentForm::signBehindBlank ? 2 : 1;
  std::vector<std::size_t> result;
  for (std::size_t i = distance; i < list.count(); ++i) {
    if (!list[i].is(TokenType::percentageSymbol) || !list[i - distance].is(TokenType::number)) continue;
    if (form == PercentForm::signBehindBlank && !list[i - 1].is(TokenType::whitespace)) continue;
    result.push_back(i);
  }
  return result;
}

void identifyPercentages(TokenList& list, PercentForm form) {
  const std::vector<std::size_t> signs = percentSignsBehindNumbers(list, form);
  // From the end, so that the indices in front stay good; and so that in "5 % 3 %" the 3 is a percentage before the
  // first sign asks whether a number follows.
  for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign) {
    if (isNumberAt(list, list.indexAfter(*sign, /*ignoreWhitespace=*/true))) continue;
    replaceByPercentage(list, form == PercentForm::signBehindBlank ? *sign - 2 : *sign - 1, *sign);
  }
}

}  // namespace

void identifyPercentages(TokenList& list, const PassContext&) {
  if (list.typePrecheck(TokenType::typeName)) {
    for (std::size_t i = list.count(); i-- > 0;) {
      if (!list[i].is(TokenType::typeName, TokenSubType::percentageTypeName)) continue;
      const auto number = numberBeforePercent(list, i);
      if (!number) continue;
      replaceByPercentage(list, *number, i);
      i = *number;
    }
  }
  if (!list.allTypesHaveBeenPresentIn(TokenTypeSet::percentageSubTypes)) return;
  identifyPercentages(list, PercentForm::signDirectlyBehind);
  identifyPercentages(list, PercentForm::signBehindBlank);
}

void identifyPercentSymbolAsModIn(TokenList& list, const PassContext&) {
  static constexpr TokenTypeSet kOperands{TokenType::number, TokenType::subexpression};
  list.performEditsToListsWith(
      TokenType::percentageSymbol, /*recalculateRangesAfterEdit=*/false,
      [](const Token& sign, TokenList& tokens, const Token*) {
        const std::optional<std::size_t> index = tokens.indexOf(sign);
        if (!index) return;
        const Token* before = tokens.tokenBefore(*index, /*ignoreWhitespace=*/true);
        const Token* after = tokens.tokenAfter(*index, /*ignoreWhitespace=*/true);
        if (before == nullptr || after == nullptr) return;
        if (!kOperands.contains(before->type) || !kOperands.contains(after->type)) return;
        tokens.replaceAt(*index, Token(TokenType::operator_, TokenSubType::modOperator, sign.stringValue, sign.range));
      });
}

// --- Two numbers and an operator ------------------------------------------------------------------------------------

void identifyResolutionsIn(TokenList& list, const PassContext& context) {
  if (context.features.disables(FunctionIdentifier::screenDensity)) return;
  list.performEditsToListsWith(
      TokenType::operator_, /*recalculateRangesAfterEdit=*/false,
      [](const Token& times, TokenList& tokens, const Token*) {
        if (times.subType != TokenSubType::multiplicationOperator) return;
        const std::optional<std::size_t> index = tokens.indexOf(times);
        if (!index) return;
        const auto width = tokens.indexBefore(*index, /*ignoreWhitespace=*/true);
        const auto height = tokens.indexAfter(*index, /*ignoreWhitespace=*/true);
        if (!isNumberAt(tokens, width) || !isNumberAt(tokens, height)) return;
        const Resolution resolution{numberIn(tokens[*width]), numberIn(tokens[*height])};
        tokens.replaceRun(*width, *height,
                          tokens.slice(*width, *height)
                              .embedInContainerToken(TokenType::resolution, TokenSubType::notSpecified,
                                                     std::make_shared<const ResolutionTokenMetadata>(resolution)));
      });
}

namespace {

/// Whether the token takes the number behind it before a division can: the power does, and a converter.
bool bindsTighterThanDivision(const Token& token) {
  return token.is(TokenType::operator_, TokenSubType::powerOperator) || token.is(TokenType::converter);
}

bool isSlash(const Token& token) {
  return token.is(TokenType::operator_, TokenSubType::divisionOperator) && token.stringValue == Parser::slash;
}

}  // namespace

void identifyFractionsIn(TokenList& list, const PassContext&) {
  list.performEditsToListsWith(
      TokenType::operator_, /*recalculateRangesAfterEdit=*/false,
      [](const Token& slash, TokenList& tokens, const Token*) {
        if (!isSlash(slash)) return;
        const std::optional<std::size_t> index = tokens.indexOf(slash);
        if (!index || *index == 0 || *index + 1 >= tokens.count()) return;
        const Token& numerator = tokens[*index - 1];
        const Token& denominator = tokens[*index + 1];
        if (!numerator.is(TokenType::number) || !denominator.is(TokenType::number)) return;
        const Token* before = tokens.tokenBefore(*index - 1, /*ignoreWhitespace=*/true);
        if (before != nullptr && bindsTighterThanDivision(*before)) return;
        const Fraction fraction{numberIn(numerator) / numberIn(denominator), std::nullopt};
        tokens.replaceRun(*index - 1, *index + 1,
                          tokens.slice(*index - 1, *index + 1)
                              .embedInContainerToken(TokenType::fraction, TokenSubType::notSpecified,
                                                     std::make_shared<const FractionTokenMetadata>(fraction)));
      });
}

}  // namespace tavrine::passes
