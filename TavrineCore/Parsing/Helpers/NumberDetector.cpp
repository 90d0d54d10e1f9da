#include "TavrineCore/Parsing/Helpers/NumberDetector.h"

#include <cstdint>
#include <string>

#include "Foundation/NumberFormatter.h"
#include "Foundation/NumberSymbols.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Helpers/DigitDetector.h"
#include "TavrineCore/Parsing/Helpers/VulgarFractionDetector.h"

namespace tavrine {

namespace {

constexpr std::string_view kStandardDecimalPoint = ".";

/// Most numbers that people type are a few plain digits: their value needs no look at the locale.
constexpr std::size_t kPlainDigitsLimit = 18;  // 10^18 - 1 fits a signed 64-bit integer

std::optional<Decimal> valueOfPlainDigits(std::string_view text) {
  if (text.size() > kPlainDigitsLimit) return std::nullopt;
  std::int64_t value = 0;
  for (const char c : text) {
    if (!DigitDetector::isDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return Decimal(value);
}

/// The text without whitespace, grouping separators and underscores; without a grouping separator in the locale the
/// underscores stay, and with them the text is no number.
std::string cleaned(std::string_view text, const NumberSymbols& symbols) {
  std::string result;
  result.reserve(text.size());
  const std::string_view grouping = symbols.groupingSeparator;
  for (std::size_t i = 0; i < text.size();) {
    if (!grouping.empty() && text.substr(i).starts_with(grouping)) {
      i += grouping.size();
      continue;
    }
    if (!grouping.empty() && text[i] == '_') {
      ++i;
      continue;
    }
    const DecodedScalar decoded = decodeScalar(text, i);
    if (!isWhitespace(decoded.scalar)) result += text.substr(i, decoded.length);
    i += decoded.length;
  }
  return result;
}

std::optional<Decimal> strictValueOf(std::string_view text, const NumberSymbols& symbols) {
  const bool locallyForeignPoint =
      symbols.decimalSeparator != kStandardDecimalPoint && symbols.groupingSeparator != kStandardDecimalPoint;
  if (locallyForeignPoint && text.find('.') != std::string_view::npos) return std::nullopt;
  return parseStrict(text, symbols);
}

std::optional<Decimal> repairedValueOf(std::string_view text, const NumberSymbols& symbols) {
  return strictValueOf(cleaned(text, symbols), symbols);
}

/// A grouping separator behind the decimal separator is beyond repair: "1.234,5" is nothing in en_US.
bool groupsItsFraction(std::string_view text, const NumberSymbols& symbols) {
  if (symbols.decimalSeparator.empty()) return false;
  const std::size_t point = text.find(symbols.decimalSeparator);
  if (point == std::string_view::npos) return false;
  const std::string_view behind = text.substr(point + symbols.decimalSeparator.size());
  // Only the piece up to a second decimal separator counts; what has two of them is refused anyway.
  return behind.substr(0, behind.find(symbols.decimalSeparator)).find(symbols.groupingSeparator) !=
         std::string_view::npos;
}

}  // namespace

NumberDetector::NumberDetector(const Locale& locale, MisplacedThousandsSeparatorBehavior behavior)
    : locale_(locale), symbols_(&NumberSymbols::forLocale(locale.identifier())), behavior_(behavior) {}

std::optional<Decimal> NumberDetector::decimalValueOf(std::string_view text) const {
  if (text.empty()) return std::nullopt;
  if (std::optional<Decimal> plain = valueOfPlainDigits(text)) return plain;

  if (const auto trailing = VulgarFractionDetector::trailingFractionOf(text)) {
    if (trailing->before.empty()) return trailing->value;
    if (VulgarFractionDetector::trailingFractionOf(trailing->before)) return std::nullopt;
    const std::optional<Decimal> whole = decimalValueOf(trailing->before);
    if (!whole || !whole->isWhole()) return std::nullopt;
    return *whole + trailing->value;
  }

  const bool opensAsNumber =
      DigitDetector::firstCharacterIsDigitIn(text) || DigitDetector::firstCharacterIsDecimalPointIn(text, locale_);
  if (!opensAsNumber) return std::nullopt;

  const NumberSymbols& symbols = *symbols_;
  if (std::optional<Decimal> strict = strictValueOf(text, symbols)) return strict;
  if (symbols.groupingSeparator.empty() || groupsItsFraction(text, symbols)) return std::nullopt;

  switch (behavior_) {
    case MisplacedThousandsSeparatorBehavior::allow:
      return repairedValueOf(text, symbols);
    case MisplacedThousandsSeparatorBehavior::disallow:
      return std::nullopt;
    case MisplacedThousandsSeparatorBehavior::interpretAsDecimalPoint: {
      for (const std::string_view identifier : {"en_US", "en_DE"}) {
        const NumberSymbols& other = NumberSymbols::forLocale(identifier);
        if (other.groupingSeparator == symbols.groupingSeparator) continue;
        if (std::optional<Decimal> value = strictValueOf(text, other)) return value;
      }
      return repairedValueOf(text, symbols);
    }
  }
  return std::nullopt;
}

}  // namespace tavrine
