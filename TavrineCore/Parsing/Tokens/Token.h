#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "Foundation/HashedWord.h"
#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

namespace foundation {
class DateInterval;
class Locale;
class TimeZone;
struct DateComponents;
}  // namespace foundation

struct Datespan;
struct Datestamp;
struct DecimalRate;
struct DegreesMinutesSeconds;
struct Fraction;
struct Frametime;
struct GPSCoordinates;
struct Laptime;
struct Percentage;
struct PercentageRate;
struct Pitch;
struct Place;
struct Resolution;
struct SalesTax;
struct Substance;
struct Timespan;
struct UnitExpression;
struct UnitRate;
struct Variable;
class Subsheet;
struct CalendarEnvironment;
class EvaluationResult;
class TCUnit;
class TokenList;
enum class EvaluationError : std::uint8_t;
enum class FunctionIdentifier : std::uint16_t;
enum class StatisticType : std::uint8_t;

using TokenListRef = std::shared_ptr<const TokenList>;

/// A piece of a line: what it is (type, subtype), where it stands, and what it is worth (metadata). A token that was
/// fused from others keeps them as subtokens: "20%" is a percentage over a number and a percentage symbol.
///
/// A value. Type and subtype are chosen when a token is made and never changed afterwards, since the lists around it
/// remember them: make a new token instead. Subtokens and metadata are shared between copies and immutable, so a copy
/// is a deep copy at the price of a string.
class Token {
 public:
  /// The blank token: what an evaluation gives that came to nothing.
  Token();

  Token(TokenType tokenType, TokenSubType tokenSubType, std::string text, NSRange textRange,
        TokenListRef tokens = nullptr, TokenMetadataRef value = nullptr)
      : type(tokenType),
        subType(tokenSubType),
        range(textRange),
        stringValue(std::move(text)),
        subtokens(std::move(tokens)),
        metadata(std::move(value)) {}

  /// A token with no finer kind.
  template <class Text>
  requires std::constructible_from<std::string, Text> Token(TokenType tokenType, Text&& text, NSRange textRange)
      : type(tokenType), subType(TokenSubType::notSpecified), range(textRange), stringValue(std::forward<Text>(text)) {}

  TokenType type;
  TokenSubType subType;
  /// Where the text stands in the raw line, in UTF-16 units. {0, 0} for a token that was made from a value.
  NSRange range;
  /// The text's `HashedWord::hash`, kept where many vocabularies will be asked for it; 0 where nobody has hashed it.
  std::uint64_t textHash = 0;
  /// The text as it was typed.
  std::string stringValue;
  /// The tokens that this one was fused from; null for a token made of one lexeme.
  TokenListRef subtokens;
  TokenMetadataRef metadata;

  [[nodiscard]] bool is(TokenType kind) const noexcept { return type == kind; }
  [[nodiscard]] bool is(TokenType kind, TokenSubType subKind) const noexcept {
    return type == kind && subType == subKind;
  }

  /// The metadata as `Metadata` if the token carries such, otherwise null.
  template <class Metadata>
  [[nodiscard]] const Metadata* metadataAs() const noexcept {
    return metadata ? metadata->as<Metadata>() : nullptr;
  }

  /// The text as a word to look up.
  [[nodiscard]] HashedWord word() const {
    return textHash == 0 ? HashedWord(stringValue) : HashedWord(stringValue, textHash);
  }

  /// Whether the token stands in no text. Such tokens have no place in the order of `<`.
  [[nodiscard]] bool hasNoRange() const noexcept { return range == NSRange::zero; }

  /// Type, subtype, range and text; neither subtokens nor metadata.
  friend bool operator==(const Token& a, const Token& b) noexcept {
    return a.type == b.type && a.subType == b.subType && a.range == b.range && a.stringValue == b.stringValue;
  }
  /// By place in the text; false where either stands in none.
  friend bool operator<(const Token& a, const Token& b) noexcept {
    return !a.hasNoRange() && !b.hasNoRange() && a.range.location < b.range.location;
  }
  /// What equality compares, and the subtokens.
  [[nodiscard]] std::size_t hash() const;

  // --- The token among its neighbours ----------------------------------------------------------------------------

  [[nodiscard]] bool isVariable() const noexcept { return type == TokenType::variable || type == TokenType::subsheet; }
  /// The innermost last subtoken that is no white space; the token itself where it has none.
  [[nodiscard]] const Token& lastSubTokenOrSelf() const;
  /// From the start of `other` to the end of this token; its own length when the two are equal, 0 when `other` starts
  /// no earlier.
  [[nodiscard]] std::uint32_t lengthFrom(const Token& other) const noexcept;

  // --- What the token knows of its value -------------------------------------------------------------------------

  /// Whether `decimalValue` means something.
  [[nodiscard]] bool hasDecimalValue() const noexcept;
  /// The number in the metadata, with its scalar applied: what `decimalValue` answers where nothing needs to be
  /// evaluated for it.
  [[nodiscard]] std::optional<Decimal> ownDecimalValue() const;
  /// The number without its scalar: 5 of "5k". 0 where there is none.
  [[nodiscard]] Decimal unscaledDecimalValue() const;
  [[nodiscard]] std::optional<std::string> scalar() const;
  [[nodiscard]] std::optional<std::uint64_t> binaryValue() const;
  [[nodiscard]] std::optional<std::uint64_t> hexValue() const;
  [[nodiscard]] std::optional<std::uint64_t> octalValue() const;

  [[nodiscard]] std::optional<Fraction> fractionValue() const;
  [[nodiscard]] std::optional<SalesTax> salesTaxValue() const;
  [[nodiscard]] std::optional<DecimalRate> decimalRateValue() const;
  [[nodiscard]] std::optional<PercentageRate> percentageRateValue() const;
  [[nodiscard]] std::optional<UnitRate> unitRateValue() const;
  /// The unit of a unit, a unit expression or a converter into a unit; of a subexpression, the first unit in it.
  [[nodiscard]] std::optional<TCUnit> unitValue() const;
  /// A value with a unit. Of a subexpression with a single token, that token's.
  [[nodiscard]] std::optional<UnitExpression> unitExpressionValue() const;
  [[nodiscard]] std::optional<Substance> substanceValue() const;
  /// The part of a date that the unit counts: `month` of "months".
  [[nodiscard]] std::optional<Calendar::Component> calendarComponentValue() const;

  [[nodiscard]] std::optional<Timespan> timespanValue() const;
  [[nodiscard]] std::optional<Datespan> datespanValue() const;
  [[nodiscard]] std::optional<DateInterval> dateIntervalValue() const;
  [[nodiscard]] std::optional<Laptime> laptimeValue() const;
  [[nodiscard]] std::optional<Frametime> frametimeValue() const;
  /// The components of date components or of a timespan.
  [[nodiscard]] std::optional<DateComponents> dateComponentsValue() const;
  [[nodiscard]] std::optional<TimeZone> timeZoneValue() const;
  [[nodiscard]] std::optional<Place> placeValue() const;
  /// Coordinates as written, or those of the place.
  [[nodiscard]] std::optional<GPSCoordinates> gpsCoordinatesValue() const;
  [[nodiscard]] std::optional<DegreesMinutesSeconds> dmsValue() const;
  [[nodiscard]] std::optional<Pitch> pitchValue() const;
  [[nodiscard]] std::optional<Resolution> resolutionValue() const;
  [[nodiscard]] std::optional<StatisticType> statisticType() const;
  [[nodiscard]] std::optional<Subsheet> subsheetValue() const;
  [[nodiscard]] std::optional<std::string> urlValue() const;
  /// The name of a traditional function that the host implements.
  [[nodiscard]] std::optional<std::string> functionName() const;
  [[nodiscard]] std::optional<FunctionIdentifier> functionIdentifier() const;
  /// The error that an `error` token stands for; `Infinity` for a number that is none.
  [[nodiscard]] std::optional<EvaluationError> errorValue() const;

  // --- Values that may need an evaluation ------------------------------------------------------------------------

  /// The number that the token is worth, by the lenient reading that arithmetic wants: 0.2 of "20%", 5000 of "5k", the
  /// value of a subexpression. 0 and a diagnostic where it is worth none.
  [[nodiscard]] Decimal decimalValue() const;
  /// `decimalValue` where `hasDecimalValue`.
  [[nodiscard]] std::optional<Decimal> number() const;
  [[nodiscard]] bool booleanValue() const;
  [[nodiscard]] Percentage percentageValue() const;
  /// A date; a subexpression is evaluated.
  [[nodiscard]] std::optional<Datestamp> datestampValue() const;
  /// The variable that the token names or declares.
  [[nodiscard]] std::optional<Variable> variable() const;
  /// The stored result of a variable or of a subsheet as a token.
  [[nodiscard]] std::optional<Token> expandedVariable() const;

  // --- Evaluation: defined with the evaluators -------------------------------------------------------------------

  /// The token that this one comes to: a subexpression to its answer, a number to itself.
  [[nodiscard]] Token evaluated() const;
  /// The result that the token stands for.
  [[nodiscard]] EvaluationResult evaluationResult() const;

  // --- Other tokens from this one --------------------------------------------------------------------------------

  /// The token with its value negated; unchanged where negation means nothing.
  [[nodiscard]] Token negated() const;
  /// A date with another calendar environment, made now.
  [[nodiscard]] Token withCalendarEnvironment(const CalendarEnvironment& environment) const;
  /// The text of a number that was written in `from`, as `to` writes it; nothing for what is no such number.
  [[nodiscard]] std::optional<Token> convertedFrom(const Locale& from, const Locale& to) const;
};
static_assert(sizeof(Token) <= 88, "tokens are what is copied most");

/// Where a token stands in a document.
struct TokenIndexPath {
  std::size_t tokenIndex = 0;
  std::size_t lineIndex = 0;
  friend bool operator==(const TokenIndexPath&, const TokenIndexPath&) = default;
};

/// One line for developers: type, subtype, range, text, value and what it was fused from.
std::string describe(const Token& token);
std::string describe(const TokenList& list);

}  // namespace tavrine

template <>
struct std::hash<tavrine::Token> {
  std::size_t operator()(const tavrine::Token& token) const { return token.hash(); }
};
