// Numbers that are written with more than one lexeme: "1 000", "5k", "2e5", "0xFF".

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Foundation/DecimalMath.h"
#include "Foundation/Diagnostics.h"
#include "Foundation/NumberSymbols.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Helpers/NumericClusterComponents.h"
#include "TavrineCore/Parsing/Helpers/Scalars.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

// --- Numbers grouped by blanks --------------------------------------------------------------------------------------

namespace {

std::string withoutWhitespace(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const DecodedScalar decoded = decodeScalar(text, i);
    if (!isWhitespace(decoded.scalar)) result += text.substr(i, decoded.length);
    i += decoded.length;
  }
  return result;
}

bool isColon(const Token* token) { return token != nullptr && token->is(TokenType::colon); }

/// The leftmost number of the run of numbers and blanks that ends with the number at `last`.
std::size_t firstNumberOfRun(const TokenList& list, std::size_t last) {
  std::size_t first = last;
  for (std::size_t i = last; i-- > 0 && TokenTypeSet::numbersAndWhitespace.contains(list[i].type);) {
    if (list[i].is(TokenType::number)) first = i;
  }
  return first;
}

}  // namespace

void gatherWhitespacedSeparatedNumbers(TokenList& list, const PassContext& context) {
  const std::string& separator = context.numberDetector.symbols().groupingSeparator;
  if (separator.empty() || !trimmed(separator).empty()) return;

  bool hasReported = false;
  for (std::size_t last = list.count(); last-- > 0;) {
    if (!list[last].is(TokenType::number)) continue;
    const std::size_t first = firstNumberOfRun(list, last);
    if (first == last) continue;
    // Times stay times. The number before the colon is out; what stands before it may still be a group.
    if (isColon(list.tokenFor(last + 1))) continue;
    // A colon in front holds for every number of the run: none of them is looked at again.
    const bool followsColon = first > 0 && isColon(&list[first - 1]);
    if (!followsColon) {
      const TokenSlice run = list.slice(first, last);
      std::string text = run.stringValue();
      if (const auto value = context.numberDetector.decimalValueOf(withoutWhitespace(text))) {
        list.replaceRun(first, last, numberToken(*value, std::move(text), run.range()));
      } else if (!std::exchange(hasReported, true)) {
        diagnose("Failed to gather whitespace separated numbers in " + list.rebuiltExpression());
      }
    }
    last = first;
  }
}

// --- Scalars --------------------------------------------------------------------------------------------------------

namespace {

/// "5", "k" → 5 with the scalar "k".
Token scaledNumber(const TokenSlice& slice) {
  const auto* number = slice.tokens.front().metadataAs<NumberTokenMetadata>();
  return numberToken(
      NumberTokenMetadata(number != nullptr ? number->decimalValue : Decimal(), slice.tokens.back().stringValue),
      slice.stringValue(), slice.range());
}

bool isValidScalar(const Token* token) {
  return token != nullptr && token->is(TokenType::scalar) && Scalars::isValid(lastCluster(token->stringValue));
}

/// The last of the words and scalars that make one word with the scalar at `scalar`, which is none: each scalar takes
/// the word behind it.
std::size_t lastPieceOfWord(const TokenList& list, std::size_t scalar) {
  std::size_t last = scalar;
  while (true) {
    if (last + 1 < list.count() && list[last + 1].is(TokenType::unidentified)) ++last;
    if (!isValidScalar(list.tokenFor(last + 1))) return last;
    ++last;
  }
}

}  // namespace

void applyScalarsToNumbers(TokenList& list, const PassContext& context) {
  const Locale& locale = context.customization.locale();
  // Here a word may reach the list in pieces, and one of them may look like a scalar.
  const bool joinsPieces = locale.isChinese() || locale.hasPrefix("ru");

  for (std::size_t i = 1; i < list.count(); ++i) {
    const Token& token = list[i];
    if (!isValidScalar(&token)) continue;
    switch (list[i - 1].type) {
      case TokenType::number: {
        const TokenSlice slice = list.slice(i - 1, i);
        list.replace(slice, scaledNumber(slice));
        --i;
        break;
      }
      case TokenType::bracket:
      case TokenType::variable:
        list.replaceAt(i, Token(TokenType::functionName, token.stringValue, token.range));
        break;
      default: {
        const bool takesWordBefore = joinsPieces && list[i - 1].is(TokenType::unidentified);
        const TokenSlice word = list.slice(takesWordBefore ? i - 1 : i, joinsPieces ? lastPieceOfWord(list, i) : i);
        list.replace(word, Token(TokenType::unidentified, word.stringValue(), word.range()));
        i = word.startIndex;
      }
    }
  }
}

// --- Scientific notation --------------------------------------------------------------------------------------------

namespace {

bool isExponentLetter(std::string_view text) {
  return text == Parser::sciNoteEChar || text == Parser::uppercaseSciNoteEChar;
}

/// An exponent and how many tokens it takes, from the letter on.
struct Exponent {
  Decimal value;
  std::size_t tokenCount = 1;
};

std::optional<Exponent> exponentAt(const TokenList& list, std::size_t index, const PassContext& context) {
  const std::string& text = list[index].stringValue;
  if (isExponentLetter(text)) {
    const Token* sign = list.tokenFor(index + 1);
    const Token* digits = list.tokenFor(index + 2);
    if (digits == nullptr || !sign->is(TokenType::operator_) || !digits->is(TokenType::number)) return std::nullopt;
    const Decimal value = numberIn(*digits);
    return Exponent{sign->subType == TokenSubType::subtractionOperator ? value.negated() : value, 3};
  }
  if (!isExponentLetter(text.substr(0, 1))) return std::nullopt;
  const auto cluster = NumericClusterComponents::make(text, context.numberDetector);
  if (!cluster || cluster->type != NumericClusterType::wordFirst) return std::nullopt;
  if (!isExponentLetter(cluster->sandwichComponent.text)) return std::nullopt;
  return Exponent{*cluster->trailingDecimal, 1};
}

}  // namespace

void identifyScientificNotation(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 1;) {
    if (!list[i].is(TokenType::unidentified) || !list[i - 1].is(TokenType::number)) continue;
    const std::optional<Exponent> exponent = exponentAt(list, i, context);
    if (!exponent) continue;
    const TokenSlice slice = list.slice(i - 1, i + exponent->tokenCount - 1);
    const Decimal value = numberIn(list[i - 1]) * TCDecimalPower(Decimal(10), exponent->value);
    list.replace(slice, numberToken(value, slice.stringValue(), slice.range()));
  }
}

// --- Other bases ----------------------------------------------------------------------------------------------------

namespace {

struct NumberBase {
  std::string_view prefix;
  int radix;
  TokenType type;
  bool EngineFeatureFlags::*alsoNeeds;  // beside `hexAndBinary`
  TokenMetadataRef (*metadata)(std::uint64_t value);
};

template <class Metadata>
TokenMetadataRef makeMetadata(std::uint64_t value) {
  return std::make_shared<const Metadata>(value);
}

constexpr auto kNumberBases = std::to_array<NumberBase>({
    {Parser::binaryPrefix, 2, TokenType::binaryNumber, nullptr, makeMetadata<BinaryTokenMetadata>},
    {Parser::hexPrefix, 16, TokenType::hexadecimalNumber, nullptr, makeMetadata<HexTokenMetadata>},
    {Parser::octalPrefix, 8, TokenType::octalNumber, &EngineFeatureFlags::octal, makeMetadata<OctalTokenMetadata>},
});

std::optional<std::uint64_t> valueOfDigits(std::string_view digits, int radix) {
  const std::string text = replacingAll(digits, "_", "");
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, radix);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// The number of another base that the text spells, as a token.
std::optional<Token> otherBaseNumber(const TokenSlice& slice, const PassContext& context) {
  std::string text = slice.stringValue();
  for (const NumberBase& base : kNumberBases) {
    if (!text.starts_with(base.prefix)) continue;
    if (base.alsoNeeds != nullptr && !(context.features.*base.alsoNeeds)) continue;
    const auto value = valueOfDigits(std::string_view(text).substr(base.prefix.size()), base.radix);
    if (!value) return std::nullopt;
    return Token(base.type, TokenSubType::notSpecified, std::move(text), slice.range(), nullptr, base.metadata(*value));
  }
  return std::nullopt;
}

}  // namespace

void identifyOtherBaseNumbersIn(TokenList& list, const PassContext& context) {
  for (std::size_t i = list.count(); i-- > 1;) {
    if (!list[i].is(TokenType::unidentified)) continue;
    const Token& zero = list[i - 1];
    if (!zero.is(TokenType::number) || !numberIn(zero).isZero()) continue;

    // The lexer may have cut the digits. A number behind a blank is another number: "0xFF 5".
    const bool goesOn = i + 1 < list.count() && list[i + 1].is(TokenType::number);
    const TokenSlice slice = list.slice(i - 1, goesOn ? i + 1 : i);
    if (std::optional<Token> number = otherBaseNumber(slice, context)) list.replace(slice, *std::move(number));
  }
}

}  // namespace tavrine::passes
