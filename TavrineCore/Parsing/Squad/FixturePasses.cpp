// Words of the vocabulary that the first look at single lexemes can't see.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Functions/FunctionList.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

/// Words of the longest phrase that the vocabularies know.
constexpr std::size_t kMaximumWords = 7;

std::optional<TokenType> relatedTypeOf(std::string_view text, const PassContext& context) {
  const std::optional<Fixture> fixture = context.content.fixturesList->find(text);
  return fixture ? relatedTokenType(*fixture) : std::nullopt;
}

/// The token of a phrase; nothing for a text that is no fixture, or one without a type of its own.
std::optional<Token> tokenOfPhrase(std::string text, NSRange range, const PassContext& context) {
  const std::optional<Fixture> fixture = context.content.fixturesList->find(text);
  const std::optional<TokenType> type = fixture ? relatedTokenType(*fixture) : std::nullopt;
  if (!type) return std::nullopt;
  const TokenSubType subType = relatedTokenSubType(*fixture);
  TokenMetadataRef metadata;
  if (type == TokenType::dateWord) {
    if (const DateWord* word = context.content.dateWordsList->dateWordFor(text)) {
      metadata = std::make_shared<const DateWordTokenMetadata>(*word);
    }
  } else if (type == TokenType::statisticType) {
    if (const std::optional<StatisticType> statistic = statisticTypeOf(subType)) {
      metadata = std::make_shared<const StatisticTypeTokenMetadata>(*statistic);
    }
  }
  return Token(*type, subType, std::move(text), range, nullptr, std::move(metadata));
}

/// A word of the vocabulary inside a longer one: the gates of later passes must open for it.
void rememberTypesInside(const std::string& word, TokenList& list, const PassContext& context) {
  TokenTypeSet types = list.typesEverPresent();
  context.content.fixturesList->fixturesIn(word).forEach([&types](Fixture fixture) {
    if (const std::optional<TokenType> type = relatedTokenType(fixture)) types.insert(*type);
    if (fixture == Fixture::percentType) types.insert(TokenType::percentageSymbol);
  });
  list.replaceTypesCache(types);
}

/// "base 2" in "log base 2 of 8": the number is one that the phrase takes, and the two don't name a type.
bool isBaseOfLogarithm(const TokenSlice& phrase, const TokenList& list, const PassContext& context) {
  constexpr FunctionIdentifierSet kLogarithms{FunctionIdentifier::nthLog, FunctionIdentifier::nthLogReversed};
  const bool endsInNumber = phrase.tokens.back().is(TokenType::number);
  if (!endsInNumber || relatedTypeOf(phrase.stringValue(), context) != TokenType::typeName) return false;
  const auto& mapper = context.content.functionList->numericalKeywordMapper();
  const auto functions = mapper.wordFunctionsWorthScanningForIn(list, context.features);
  return std::any_of(functions.begin(), functions.end(),
                     [&](const Function* function) { return kLogarithms.contains(function->identifier); });
}

}  // namespace

void identifyMultiWordFixturesAndCustomTypesIn(TokenList& list, const PassContext& context) {
  const FixturesList& fixtures = *context.content.fixturesList;
  const CustomFunctionsList* const custom =
      context.customization.customFunctions().empty() ? nullptr : context.content.customFunctionsList.get();
  const auto isPhrase = [&fixtures, custom](std::string_view text) {
    if (custom != nullptr && custom->customTypeFor(text) != nullptr) return true;
    const std::optional<Fixture> fixture = fixtures.find(text);
    return fixture && relatedTokenType(*fixture);
  };
  const auto mayBeginPhraseAt = [&](std::size_t index) {
    if (custom != nullptr && custom->beginsMultiWordCustomType(list[index].stringValue)) return true;
    const HashedWord word = list[index].word();
    if (!fixtures.mayBeginPhrase(word) || !fixtures.beginsMultiWordFixture(word)) return false;
    const Token* const next = list.tokenAfter(index, /*ignoreWhitespace=*/true);
    return next != nullptr && fixtures.mayBeginMultiWordFixture(word, next->word());
  };
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!TokenTypeSet::typesInMultiWordFixtures.contains(list[i].type)) continue;
    if (!mayBeginPhraseAt(i)) continue;
    const std::optional<TokenSlice> phrase =
        list.findPhraseTextBeginningWith(i, TokenTypeSet::typesInMultiWordFixtures, isPhrase, kMaximumWords);
    if (!phrase) continue;
    if (const CustomType* type = custom == nullptr ? nullptr : custom->customTypeFor(phrase->stringValue())) {
      list.replace(*phrase, customTypeToken(*type, phrase->stringValue(), phrase->range()));
      continue;
    }
    if (isBaseOfLogarithm(*phrase, list, context)) continue;
    if (std::optional<Token> token = tokenOfPhrase(phrase->stringValue(), phrase->range(), context)) {
      list.replace(*phrase, *std::move(token));
    }
  }
}

void identifyExtraFixturesInChinese(TokenList& list, const PassContext& context) {
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::unidentified)) continue;
    if (std::optional<Token> token = tokenOfPhrase(list[i].stringValue, list[i].range, context)) {
      list.replaceAt(i, *std::move(token));
      continue;
    }
    rememberTypesInside(list[i].stringValue, list, context);
    const auto before = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (!before || !TokenTypeSet::chineseExtraSpecifierScanTypes.contains(list[*before].type)) continue;
    const TokenSlice slice = list.slice(*before, i);
    if (std::optional<Token> token = tokenOfPhrase(slice.stringValue(), slice.range(), context)) {
      list.replace(slice, *std::move(token));
      i = *before;
    }
  }
}

}  // namespace tavrine::passes
