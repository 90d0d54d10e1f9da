// "in km", "as a fraction", "to New York": a converter symbol and what it converts to.

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Squad/ConverterTypes.h"
#include "TavrineCore/Parsing/Squad/DateFormatTemplateParser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

TokenSubType converterTypeOf(const Token& typeName, const EngineFeatureFlags& features) {
  const auto unless = [](bool isOn, TokenSubType subType) { return isOn ? subType : TokenSubType::notSpecified; };
  switch (typeName.subType) {
    case TokenSubType::numberTypeName:
      return TokenSubType::numberConverter;
    case TokenSubType::fractionTypeName:
      return TokenSubType::fractionConverter;
    case TokenSubType::multiplierTypeName:
      return TokenSubType::multiplierConveter;
    case TokenSubType::scientificNotationTypeName:
      return TokenSubType::scientificNotationConverter;
    case TokenSubType::binaryTypeName:
      return unless(features.hexAndBinary, TokenSubType::binaryConverter);
    case TokenSubType::hexadecimalTypeName:
      return unless(features.hexAndBinary, TokenSubType::hexadecimalConverter);
    case TokenSubType::octalTypeName:
      return unless(features.hexAndBinary, TokenSubType::octalConverter);
    case TokenSubType::percentageTypeName:
      return TokenSubType::percentageConverter;
    case TokenSubType::timestampTypeName:
      return TokenSubType::timestampConverter;
    case TokenSubType::timespanTypeName:
      return TokenSubType::timespanConverter;
    case TokenSubType::feetAndInchesTypeName:
      return TokenSubType::feetAndInchesConverter;
    case TokenSubType::poundsAndOuncesTypeName:
      return TokenSubType::poundsAndOuncesConverter;
    case TokenSubType::laptimeTypeName:
      return TokenSubType::laptimeConverter;
    case TokenSubType::frametimeTypeName:
      return TokenSubType::frametimeConverter;
    case TokenSubType::dateTypeName:
      return TokenSubType::dateConverter;
    case TokenSubType::iso8601TypeName:
      return TokenSubType::iso8601Converter;
    case TokenSubType::midiTypeName:
      return unless(features.musicalConversions, TokenSubType::midiConverter);
    case TokenSubType::pitchTypeName:
      return unless(features.musicalConversions, TokenSubType::pitchConverter);
    case TokenSubType::dmsTypeName:
      return TokenSubType::dmsConverter;
    case TokenSubType::frequencyRateTypeName:
      return TokenSubType::frequencyRateConverter;
    case TokenSubType::yearsAndMonthsTypeName:
      return TokenSubType::yearsAndMonthsConverter;
    case TokenSubType::monthsAndWeeksTypeName:
      return TokenSubType::monthsAndWeeksConverter;
    case TokenSubType::monthsAndDaysTypeName:
      return TokenSubType::monthsAndDaysConverter;
    case TokenSubType::weeksAndDaysTypeName:
      return TokenSubType::weeksAndDaysConverter;
    case TokenSubType::daysAndHoursTypeName:
      return TokenSubType::daysAndHoursConverter;
    case TokenSubType::hoursAndMinutesTypeName:
      return TokenSubType::hoursAndMinutesConverter;
    default:
      return TokenSubType::notSpecified;
  }
}

namespace passes {

namespace {

constexpr TokenTypeSet kValuesAtWhichToConvert{TokenType::number, TokenType::unitExpression, TokenType::rate};
constexpr TokenTypeSet kConvertibleIntoUnitExpression{TokenType::unit, TokenType::unitExpression, TokenType::timespan};
/// What can stand before a converter and be nothing to convert.
constexpr TokenTypeSet kNothingToConvert{TokenType::unidentified, TokenType::wordComment, TokenType::bracket};

// --- "as a decimal" -------------------------------------------------------------------------------------------------

/// The article before the name of a type becomes white space, so that "as a decimal" reads as "as decimal".
void blankArticle(const Token& typeName, TokenList& list, const Token* parent) {
  if (parent != nullptr && parent->is(TokenType::wordFunction)) return;
  const auto index = list.indexOf(typeName);
  const auto article = index ? list.indexBefore(*index, /*ignoreWhitespace=*/true) : std::nullopt;
  if (!article) return;
  if (!list[*article].is(TokenType::grammerArticleWord, TokenSubType::indefiniteGrammarArticleWord)) return;
  const TokenSlice slice = list.slice(*article, *index - 1);
  list.replaceRun(*article, *index - 1, Token(TokenType::whitespace, slice.stringValue(), slice.range()));
}

// --- Converters -----------------------------------------------------------------------------------------------------

class ConverterFinder {
 public:
  ConverterFinder(TokenList& list, std::size_t symbol, const PassContext& context)
      : list_(list), symbol_(symbol), context_(context) {}

  void wrap() {
    const auto next = after(symbol_);
    if (!next) return;
    const std::optional<Target> target = targetAt(*next);
    if (!target) return;
    if (target->subType == TokenSubType::dateConverter && list_[*next].is(TokenType::typeName)) readNumberAsTimestamp();
    if (!list_.indexBefore(symbol_, /*ignoreWhitespace=*/true, kNothingToConvert)) return;
    list_.replaceRun(symbol_, target->last,
                     list_.slice(symbol_, target->last).embedInContainerToken(TokenType::converter, target->subType));
  }

 private:
  struct Target {
    TokenSubType subType;
    std::size_t last;
  };

  [[nodiscard]] std::optional<std::size_t> after(std::size_t index) const {
    return list_.indexAfter(index, /*ignoreWhitespace=*/true);
  }
  [[nodiscard]] bool isAt(std::optional<std::size_t> index, TokenType type) const {
    return index && list_[*index].is(type);
  }

  /// The unit behind an operator that follows the token: the "/ h" of "in km / h".
  [[nodiscard]] std::optional<std::size_t> unitBehindOperatorAfter(std::size_t index) const {
    const auto operation = after(index);
    if (!isAt(operation, TokenType::operator_)) return std::nullopt;
    const auto unit = after(*operation);
    return isAt(unit, TokenType::unit) ? unit : std::nullopt;
  }

  std::optional<Target> targetAt(std::size_t next) {
    const Token& token = list_[next];
    switch (token.type) {
      case TokenType::operator_: {
        const auto unit = after(next);
        if (token.subType != TokenSubType::divisionOperator || !isAt(unit, TokenType::unit)) return std::nullopt;
        return Target{TokenSubType::rateConverter, *unit};
      }
      case TokenType::percentageSymbol:
        if (const auto unit = unitBehindOperatorAfter(next)) return Target{TokenSubType::rateConverter, *unit};
        return Target{TokenSubType::percentageConverter, next};
      case TokenType::unit:
        return targetAtUnit(next);
      case TokenType::typeName:
        return Target{converterTypeOf(token, context_.features), next};
      case TokenType::timezone:
        if (!list_.typePrecheck(TokenType::datestamp)) return std::nullopt;
        return Target{TokenSubType::timezoneConverter, next};
      case TokenType::datestamp:
        return targetAtDatestamp(next);
      case TokenType::unitExpression: {
        const Token* before =
            list_.tokenBeforeMustBe(symbol_, kConvertibleIntoUnitExpression, /*ignoreWhitespace=*/true);
        if (before == nullptr) return std::nullopt;
        return Target{TokenSubType::unitExpressionConverter, next};
      }
      case TokenType::label:
      case TokenType::wordComment:
        return dateFormatTemplate();
      case TokenType::dpSpecifier:
        return Target{TokenSubType::roundingToDpConverter, next};
      case TokenType::rate:
        return Target{TokenSubType::rateConverter, next};
      case TokenType::wordFunction: {
        if (!token.subtokens) return std::nullopt;
        const bool isZone = token.subtokens->firstTokenOfType(TokenType::timezone) != nullptr;
        return Target{isZone ? TokenSubType::timezoneConverter : TokenSubType::notSpecified, next};
      }
      default:
        return std::nullopt;
    }
  }

  [[nodiscard]] Target targetAtUnit(std::size_t next) const {
    if (const auto unit = unitBehindOperatorAfter(next)) return {TokenSubType::rateConverter, *unit};
    const auto preposition = after(next);
    if (preposition && list_[*preposition].is(TokenType::prepositionWord, TokenSubType::prepositionWordAt)) {
      const auto value = after(*preposition);
      if (value && kValuesAtWhichToConvert.contains(list_[*value].type)) {
        return {TokenSubType::unitConverterWithExplicitRate, *value};
      }
      return {TokenSubType::unitConverter, next};
    }
    return dateFormatTemplate().value_or(Target{TokenSubType::unitConverter, next});
  }

  /// "dd.MM.yyyy" behind a date, or behind a phrase that comes to one.
  [[nodiscard]] std::optional<Target> dateFormatTemplate() const {
    constexpr TokenTypeSet kDates{TokenType::datestamp, TokenType::unixTimestamp, TokenType::wordFunction};
    if (!context_.features.dateTemplateFormatStrings) return std::nullopt;
    const Token* date = list_.tokenBeforeMustBe(symbol_, kDates, /*ignoreWhitespace=*/true);
    if (date == nullptr) return std::nullopt;
    if (date->is(TokenType::wordFunction)) {
      const auto function = date->functionIdentifier();
      if (!function || returnTypeOf(*function) != TokenType::datestamp) return std::nullopt;
    }
    const auto slice = DateFormatTemplateParser::dateFormatConverterSliceFrom(symbol_, list_);
    if (!slice) return std::nullopt;
    return Target{TokenSubType::dateFormatTemplateConverter, slice->endIndex};
  }

  /// A word that names a date and a type: behind a converter symbol it is the type.
  std::optional<Target> targetAtDatestamp(std::size_t next) {
    const Token& token = list_[next];
    const std::optional<Fixture> fixture = context_.content.fixturesList->findAdditional(token.stringValue);
    if (!fixture || relatedTokenType(*fixture) != TokenType::typeName) return std::nullopt;
    list_.replaceAt(next, Token(TokenType::typeName, relatedTokenSubType(*fixture), token.stringValue, token.range));
    return Target{converterTypeOf(list_[next], context_.features), next};
  }

  /// "1700000000 as date": the number is a moment.
  void readNumberAsTimestamp() {
    const auto before = list_.indexBefore(symbol_, /*ignoreWhitespace=*/true);
    if (!isAt(before, TokenType::number)) return;
    list_.replaceAt(*before, list_.slice(*before, *before).embedInContainerToken(TokenType::unixTimestamp));
  }

  TokenList& list_;
  std::size_t symbol_;
  const PassContext& context_;
};

void wrapConverter(const Token& symbol, TokenList& list, const Token* parent, const PassContext& context) {
  if (parent != nullptr && (parent->is(TokenType::wordFunction) || parent->is(TokenType::datespan))) return;
  if (const auto index = list.indexOf(symbol)) ConverterFinder(list, *index, context).wrap();
}

// --- "hertz" and its kin outside of converters ----------------------------------------------------------------------

std::optional<Token> convertFrequencyRateTypeNamesOutsideConvertersIntoRates(const Token& typeName,
                                                                             const Token* parent) {
  if (typeName.subType != TokenSubType::frequencyRateTypeName) return std::nullopt;
  if (parent != nullptr && parent->is(TokenType::converter)) return std::nullopt;
  return Token(TokenType::rate, TokenSubType::unitRate, typeName.stringValue, typeName.range, nullptr,
               std::make_shared<const UnitRateTokenMetadata>(
                   UnitRate{Decimal(1), std::nullopt, unitOf(UnitIdentifier::seconds)}));
}

}  // namespace

void identifyConvertersIn(TokenList& list, const PassContext& context) {
  const bool isEnglish = context.customization.locale().identifier().starts_with("en");
  if (isEnglish && list.typesPrecheck({TokenType::grammerArticleWord, TokenType::typeName})) {
    list.performEditsToListsWith(
        TokenType::typeName, /*recalculateRangesAfterEdit=*/false,
        [](const Token& typeName, TokenList& inner, const Token* parent) { blankArticle(typeName, inner, parent); });
  }
  list.performEditsToListsWith(TokenType::converterSymbol, /*recalculateRangesAfterEdit=*/false,
                               [&context](const Token& symbol, TokenList& inner, const Token* parent) {
                                 wrapConverter(symbol, inner, parent, context);
                               });
  list.applyTransformationToAllTokensOfType(
      TokenType::typeName, nullptr, /*reversed=*/true, [](const Token& typeName, const Token* parent) {
        return convertFrequencyRateTypeNamesOutsideConvertersIntoRates(typeName, parent);
      });
}

}  // namespace passes

}  // namespace tavrine
