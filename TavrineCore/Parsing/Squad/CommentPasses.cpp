// What people write beside their sums: slashes, quotation marks, tags, brackets, plain words.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Helpers/TokenListVariableSubstitutor.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine::passes {

namespace {

// --- Slashes --------------------------------------------------------------------------------------------------------

bool isSlash(const TokenList& list, std::size_t index) {
  return index < list.count() && list[index].is(TokenType::operator_, TokenSubType::divisionOperator) &&
         list[index].stringValue == Parser::slash;
}

/// Wraps all from the slashes to the end of the line. Slashes behind a colon belong to a web address, and slashes
/// without white space behind them to whatever they touch.
bool wrapSlashComment(TokenList& list, std::size_t first, std::size_t lastSlash) {
  if (lastSlash + 1 >= list.count() || !list[lastSlash + 1].is(TokenType::whitespace)) return false;
  if (first > 0 && list[first - 1].is(TokenType::colon)) return false;
  const auto last = list.indexBefore(list.count(), /*ignoreWhitespace=*/true);
  if (!last) return false;
  list.replaceRun(first, *last, list.slice(first, *last).embedInContainerToken(TokenType::slashComment));
  return true;
}

// --- Words ----------------------------------------------------------------------------------------------------------

constexpr TokenTypeSet kParentsOfWordComments{TokenType::variableDeclaration, TokenType::conditionalExpression,
                                              TokenType::conditionalVariableDeclaration, TokenType::subexpression};

bool namesTag(std::string_view word) {
  return word.starts_with(Parser::hashTagPrefix) && word.find_first_not_of('#') != std::string_view::npos;
}

Token hashtag(const Token& word, Variable tag) {
  return {TokenType::hashtag,
          TokenSubType::notSpecified,
          word.stringValue,
          word.range,
          nullptr,
          std::make_shared<const HashtagTokenMetadata>(std::move(tag))};
}

Token hashtagNamedBy(const Token& word, const VariableList& variables) {
  if (const Variable* known = variables.find(word.stringValue)) return hashtag(word, *known);
  return hashtag(word, Variable(word.stringValue, std::nullopt, Variable::VariableType::tag));
}

// --- Quotation marks ------------------------------------------------------------------------------------------------

constexpr char kStandardQuotationCharacter = '"';

std::string withoutQuotationMarks(std::string text) {
  const std::size_t first = text.find_first_not_of(kStandardQuotationCharacter);
  if (first == std::string::npos) return {};
  const std::size_t last = text.find_last_not_of(kStandardQuotationCharacter);
  return text.substr(first, last - first + 1);
}

// --- Brackets -------------------------------------------------------------------------------------------------------

/// Words beside values inside of brackets: what makes "(5 or so)" a remark.
bool holdsWords(const TokenList& list) {
  return std::any_of(list.begin(), list.end(), [](const Token& token) {
    return TokenTypeSet::nonMeaningfulTypes.contains(token.type) &&
           !TokenTypeSet::bracketsAndWhitespace.contains(token.type);
  });
}

TokenTypeSet typesIn(const TokenList& list) {
  TokenTypeSet types;
  for (const Token& token : list) types.insert(token.type);
  return types;
}

bool isPotentialBracketComment(const TokenList& inner) {
  const TokenList expanded = TokenListVariableSubstitutor::expandedForReading(inner);
  if (expanded.anyTypesHaveBeenPresentIn(TokenTypeSet::immediateNotBracketCommentSet)) return false;
  if (expanded.typePrecheck(TokenType::operator_) &&
      expanded.anyTypesHaveBeenPresentIn(TokenTypeSet::notBracketCommentIfPresentWithOperatorSet)) {
    return false;
  }
  return std::none_of(expanded.begin(), expanded.end(), [](const Token& token) {
    return token.is(TokenType::subexpression) && token.subtokens && isPotentialBracketComment(*token.subtokens);
  });
}

constexpr Decimal kFirstRecentYear = Decimal(1901);
constexpr Decimal kLastRecentYear = Decimal(2101);

bool isRecentYear(const Token& number) {
  const std::optional<Decimal> value = number.ownDecimalValue();
  return value && *value >= kFirstRecentYear && *value <= kLastRecentYear;
}

/// What the one value between the brackets says about them; nothing where it doesn't decide.
std::optional<bool> isCommentByOnlyToken(const Token& token, const TokenList& list, std::size_t index) {
  if (token.is(TokenType::unitExpression)) {
    const auto* metadata = token.metadataAs<UnitExpressionTokenMetadata>();
    return metadata == nullptr || metadata->unitMetaData.underlyingTCUnit.unitType() != UnitType::currency;
  }
  if (token.is(TokenType::datestamp)) {
    const auto* metadata = token.metadataAs<DatestampTokenMetadata>();
    return metadata == nullptr || !metadata->datestamp.isAmbiguous;
  }
  if (token.is(TokenType::number) && isRecentYear(token) &&
      list.tokenBeforeMustBe(index, TokenType::unitExpression, /*ignoreWhitespace=*/true) != nullptr) {
    return true;
  }
  if (TokenTypeSet::definetelyNotBracketCommentIfPresentTypes.contains(token.type)) return std::nullopt;
  return true;
}

bool isBracketComment(const TokenList& list, std::size_t index) {
  if (!list[index].subtokens) return false;
  const TokenList& inner = *list[index].subtokens;
  if (typesIn(inner).isSubsetOf(TokenTypeSet::definitelyBracketCommentTypes)) return true;
  if (list.tokenBeforeMustBe(index, TokenType::operator_, /*ignoreWhitespace=*/true) != nullptr) return false;
  const Token* after = list.tokenAfter(index, /*ignoreWhitespace=*/true);
  if (after != nullptr && after->is(TokenType::operator_, TokenSubType::powerOperator)) return false;
  if (!isPotentialBracketComment(inner)) return false;
  if (const Token* only = inner.onlyMeaningfulToken()) {
    if (const std::optional<bool> isComment = isCommentByOnlyToken(*only, list, index)) return *isComment;
  }
  return holdsWords(inner);
}

}  // namespace

void identifySlashCommentsIn(TokenList& list, const PassContext&) {
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (isSlash(list, i) && isSlash(list, i + 1) && wrapSlashComment(list, i, i + 1)) return;
  }
}

void identifySlashCommentsInWords(TokenList& list, const PassContext&) {
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::unidentified) || list[i].stringValue != Parser::slashSlash) continue;
    if (wrapSlashComment(list, i, i)) return;
  }
}

void transformUnidentifiedTokensIntoWordComments(TokenList& list, const PassContext& context) {
  const bool hashTags = context.features.hashTags();
  // Nearly all words stand in the line itself and are no tags.
  bool areOthersLeft = false;
  for (std::size_t i = 0; i < list.count(); ++i) {
    const Token& token = list[i];
    const bool isWord = token.is(TokenType::unidentified);
    if (isWord && !token.subtokens && token.stringValue != " " && (!hashTags || !namesTag(token.stringValue))) {
      list.becomeWordAt(i);
    } else if (isWord || token.subtokens) {
      areOthersLeft = true;
    }
  }
  if (!areOthersLeft) return;
  list.applyTransformationToAllTokensOfType(TokenType::unidentified, nullptr, /*reversed=*/false,
                                            [&](const Token& token, const Token* parent) -> std::optional<Token> {
                                              if (parent != nullptr && !kParentsOfWordComments.contains(parent->type))
                                                return std::nullopt;
                                              if (token.stringValue == " ") return std::nullopt;
                                              if (hashTags && namesTag(token.stringValue))
                                                return hashtagNamedBy(token, context.variables);
                                              return Token(TokenType::wordComment, token.stringValue, token.range);
                                            });
}

void identifyLegacyQuotationComments(TokenList& list, const PassContext&) {
  std::vector<std::size_t> marks;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (list[i].is(TokenType::quotationMark)) marks.push_back(i);
  }
  // A last mark without a partner stays alone. From the end, so that the indices in front stay good.
  for (std::size_t pair = marks.size() / 2; pair-- > 0;) {
    TokenSlice slice = list.slice(marks[2 * pair], marks[2 * pair + 1]);
    auto metadata = std::make_shared<const QuotationCommentTokenMetadata>(withoutQuotationMarks(slice.stringValue()));
    list.replaceRun(slice.startIndex, slice.endIndex,
                    std::move(slice).embedInContainerToken(TokenType::legacyQuotationComment,
                                                           TokenSubType::notSpecified, std::move(metadata)));
  }
}

void identifyUnhashedTagsIn(TokenList& list, const PassContext& context) {
  const StringSet& tags = context.variables.unhashedTags();
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::wordComment)) continue;
    const std::string name = std::string(Parser::hashTagPrefix) + list[i].stringValue;
    const Variable* tag = tags.contains(name) ? context.variables.find(name) : nullptr;
    if (tag != nullptr) list.replaceAt(i, hashtag(list[i], *tag));
  }
}

void identifyBracketCommentsIn(TokenList& list, const PassContext&) {
  list.performEditsToListsWith(TokenType::subexpression, /*recalculateRangesAfterEdit=*/false,
                               [](const Token& token, TokenList& inner, const Token* parent) {
                                 if (parent != nullptr && !parent->is(TokenType::variableDeclaration)) return;
                                 const auto index = inner.indexOf(token);
                                 if (!index || !isBracketComment(inner, *index)) return;
                                 inner.replaceAt(*index,
                                                 Token(TokenType::bracketComment, token.stringValue, token.range));
                               });
}

}  // namespace tavrine::passes
