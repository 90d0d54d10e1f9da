#include "TavrineCore/Parsing/Helpers/TokenListVariableSubstitutor.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/Text.h"

namespace tavrine {

namespace {

constexpr TokenTypeSet kNames{TokenType::variable, TokenType::subsheet};
constexpr TokenTypeSet kQuotations{TokenType::quotationMark, TokenType::legacyQuotationComment};

std::uint32_t lengthOf(const Token& token) { return static_cast<std::uint32_t>(utf16Length(token.stringValue)); }

/// For each token whether a later one assigns to it: an "=" that no "if", "then" or "else" parts from it.
std::vector<bool> assignedTokens(const TokenList& list) {
  std::vector<bool> result(list.count(), false);
  if (!list.typePrecheck(TokenType::equals)) return result;
  bool isAssigned = false;
  for (std::size_t i = list.count(); i-- > 0;) {
    result[i] = isAssigned;
    if (list[i].is(TokenType::equals)) isAssigned = true;
    if (list[i].is(TokenType::conditionalKeyword)) isAssigned = false;
  }
  return result;
}

bool standsBetweenQuotations(const TokenList& list, std::size_t index) {
  const Token* before = list.tokenBefore(index, /*ignoreWhitespace=*/true);
  const Token* after = list.tokenAfter(index, /*ignoreWhitespace=*/true);
  return before != nullptr && after != nullptr && kQuotations.contains(before->type) &&
         kQuotations.contains(after->type);
}

std::optional<Token> valueInPlaceOf(const TokenList& list, std::size_t index) {
  const Token& name = list[index];
  if (name.subtokens || !kNames.contains(name.type)) return std::nullopt;
  std::optional<Token> value = name.expandedVariable();
  if (!value) return std::nullopt;
  if (value->is(TokenType::literal) && standsBetweenQuotations(list, index)) return std::nullopt;
  // A token that covers no text could not be found again.
  if (value->stringValue.empty()) {
    value->stringValue = name.stringValue;
    value->textHash = name.textHash;
  }
  return value;
}

/// Builds the list with the names in it.
class Restorer {
 public:
  explicit Restorer(const ExpandedTokenListInfo& info) : info_(info) {}

  std::vector<Token> restored(const TokenList& list) const {
    std::vector<Token> result;
    result.reserve(list.count());
    for (const Token& token : list) restore(token, result);
    return result;
  }

 private:
  using Replacement = ExpandedTokenListInfo::Replacement;

  void restore(const Token& token, std::vector<Token>& result) const {
    const ExpandedTokenListInfo::Run run = info_.within(token.range);
    if (run.isEmpty()) {
      result.push_back(token);
      return;
    }
    const Replacement& first = info_.replacements()[run.first];
    if (first.range.contains(token.range)) {
      // A value that a pass took apart gives way to its name once.
      if (first.range.location == token.range.location) result.push_back(first.original);
      return;
    }
    if (!token.subtokens) {
      Token copy = token;
      copy.stringValue = textWithNames(token, run);
      copy.textHash = 0;
      result.push_back(std::move(copy));
      return;
    }
    std::vector<Token> subtokens = restored(*token.subtokens);
    if (isNegativeNumberOfVariable(token, subtokens)) {
      result.insert(result.end(), std::make_move_iterator(subtokens.begin()), std::make_move_iterator(subtokens.end()));
      return;
    }
    TokenListRef inner = TokenList::frozen(std::move(subtokens));
    std::string text = inner->rebuiltExpression();
    const NSRange range{token.range.location, static_cast<std::uint32_t>(utf16Length(text))};
    result.emplace_back(token.type, token.subType, std::move(text), range, std::move(inner), token.metadata);
  }

  /// "-x" was read as a negative number: it is an operator and a variable again.
  static bool isNegativeNumberOfVariable(const Token& token, const std::vector<Token>& subtokens) {
    if (!token.is(TokenType::number) || subtokens.empty()) return false;
    if (subtokens.front().subType != TokenSubType::subtractionOperator) return false;
    const auto last = std::find_if(subtokens.rbegin(), subtokens.rend(),
                                   [](const Token& subtoken) { return !subtoken.is(TokenType::whitespace); });
    return last != subtokens.rend() && last->is(TokenType::variable);
  }

  /// The text of a token that a pass made of values without keeping them.
  std::string textWithNames(const Token& token, ExpandedTokenListInfo::Run run) const {
    std::string text;
    std::uint32_t copied = token.range.location;
    const auto copyUpTo = [&](std::uint32_t end) {
      if (end <= copied) return;
      text += sliceUtf16(token.stringValue, {copied - token.range.location, end - copied});
      copied = end;
    };
    for (std::size_t i = run.first; i < run.past; ++i) {
      const Replacement& replacement = info_.replacements()[i];
      copyUpTo(replacement.range.location);
      text += replacement.original.stringValue;
      copied = std::max(copied, replacement.range.upperBound());
    }
    copyUpTo(token.range.upperBound());
    return text;
  }

  const ExpandedTokenListInfo& info_;
};

}  // namespace

ExpandedTokenListInfo::Run ExpandedTokenListInfo::within(NSRange range) const {
  const auto first = std::partition_point(
      replacements_.begin(), replacements_.end(),
      [range](const Replacement& replacement) { return replacement.range.upperBound() <= range.location; });
  const auto past = std::partition_point(first, replacements_.end(), [range](const Replacement& replacement) {
    return replacement.range.location < range.upperBound();
  });
  const auto offset = [this](auto place) { return static_cast<std::size_t>(place - replacements_.begin()); };
  return {offset(first), offset(past)};
}

std::shared_ptr<const ExpandedTokenListInfo> TokenListVariableSubstitutor::expandVariablesIn(TokenList& list) {
  const std::vector<bool> isAssigned = assignedTokens(list);
  std::vector<Token> tokens;
  tokens.reserve(list.count());
  std::vector<ExpandedTokenListInfo::Replacement> replacements;
  std::uint32_t length = 0;
  for (std::size_t i = 0; i < list.count(); ++i) {
    std::optional<Token> value = isAssigned[i] ? std::nullopt : valueInPlaceOf(list, i);
    if (value) {
      value->range = {length, lengthOf(*value)};
      replacements.push_back({value->range, list[i]});
    }
    tokens.push_back(value ? *std::move(value) : list[i]);
    length += lengthOf(tokens.back());
  }
  if (replacements.empty()) return nullptr;
  list = TokenList(std::move(tokens)).listWithRecalculatedTokenRanges(0, /*updateParentsStrings=*/false);
  return std::make_shared<const ExpandedTokenListInfo>(std::move(replacements));
}

TokenList TokenListVariableSubstitutor::expandedForReading(const TokenList& list) {
  TokenList copy(list);
  if (copy.typesEverPresent().containsTypesFrom(kNames)) expandVariablesIn(copy);
  return copy;
}

void TokenListVariableSubstitutor::unexpand(TokenList& list, const ExpandedTokenListInfo& info) {
  TokenList restored =
      TokenList(Restorer(info).restored(list)).listWithRecalculatedTokenRanges(0, /*updateParentsStrings=*/false);
  restored.formCacheUnionWith(list);
  // A name may have come back inside of a token whose inside doesn't count for the line's cache.
  for (const ExpandedTokenListInfo::Replacement& replacement : info.replacements()) {
    restored.addToCacheTypesFrom({&replacement.original, 1});
  }
  list = std::move(restored);
}

}  // namespace tavrine
