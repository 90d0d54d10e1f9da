#include "TavrineCore/Parsing/Helpers/NumericClusterComponents.h"

#include <cstddef>

#include "Foundation/NumberSymbols.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Helpers/DigitDetector.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"

namespace tavrine {

namespace {

/// Bytes of a text from `start` to `end`.
struct Span {
  std::size_t start = 0;
  std::size_t end = 0;

  [[nodiscard]] bool isEmpty() const { return start >= end; }
};

bool isDigit(char32_t scalar) { return decimalDigitValue(scalar) >= 0; }

/// Where the run of scalars that begins at `start` and is told by `belongs` ends.
template <class Test>
std::size_t endOfRun(std::string_view text, std::size_t start, Test belongs) {
  while (start < text.size()) {
    const DecodedScalar decoded = decodeScalar(text, start);
    if (!belongs(decoded.scalar)) break;
    start += decoded.length;
  }
  return start;
}

std::size_t endOfNonDigits(std::string_view text, std::size_t start) {
  return endOfRun(text, start, [](char32_t scalar) { return !isDigit(scalar); });
}

std::size_t endOfDigits(std::string_view text, std::size_t start) { return endOfRun(text, start, isDigit); }

/// The word at the end: "km" of "5km".
Span nonDigitsAtEnd(std::string_view text) {
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size();) {
    i = endOfNonDigits(text, i);
    if (i == text.size()) break;
    i = start = endOfDigits(text, i);
  }
  return {start, text.size()};
}

/// The first run of what no number is written with: "x" of "1.5x3".
Span wordInTheMiddle(std::string_view text) {
  const std::size_t start = text.find_first_not_of("0123456789.");
  if (start == std::string_view::npos) return {};
  const std::size_t end = text.find_first_of("0123456789.", start);
  return {start, end == std::string_view::npos ? text.size() : end};
}

/// The digits between a word and a single last letter: "2" of "h2m".
Span digitsInTheMiddle(std::string_view text) {
  const std::size_t start = endOfNonDigits(text, 0);
  const std::size_t end = endOfDigits(text, start);
  if (start == 0 || end == start || end == text.size()) return {};
  const bool endsWithOneLetter = end + decodeScalar(text, end).length == text.size();
  return endsWithOneLetter ? Span{start, end} : Span{};
}

NumericClusterComponent component(std::string_view text, Span span) {
  const auto location = static_cast<std::uint32_t>(utf16Length(text.substr(0, span.start)));
  const std::string_view part = text.substr(span.start, span.end - span.start);
  return {part, {location, static_cast<std::uint32_t>(utf16Length(part))}};
}

std::optional<NumericClusterType> typeOf(std::string_view text, const std::string& decimalSeparator) {
  const bool beginsWithDigit = DigitDetector::firstCharacterIsDigitIn(text);
  const bool endsWithDigit = DigitDetector::lastCharacterIsDigitIn(text);
  if (beginsWithDigit && endsWithDigit) return NumericClusterType::bookendedByNumbers;
  const bool beginsWithPoint = !decimalSeparator.empty() && text.starts_with(decimalSeparator);
  if (beginsWithDigit || beginsWithPoint) return NumericClusterType::numberFirst;
  if (endsWithDigit) return NumericClusterType::wordFirst;
  if (DigitDetector::containsDigit(text)) return NumericClusterType::bookendedByLetters;
  return std::nullopt;
}

/// The middle part; what stands before and behind it are the other two.
Span sandwichOf(NumericClusterType type, std::string_view text, const std::string& decimalSeparator) {
  switch (type) {
    case NumericClusterType::numberFirst:
      return nonDigitsAtEnd(text);
    case NumericClusterType::wordFirst: {
      Span word{0, endOfNonDigits(text, 0)};
      // "abc.5": the point is the number's.
      const bool endsWithPoint = !decimalSeparator.empty() && text.substr(0, word.end).ends_with(decimalSeparator);
      if (endsWithPoint) word.end -= decimalSeparator.size();
      return word;
    }
    case NumericClusterType::bookendedByNumbers:
      return wordInTheMiddle(text);
    case NumericClusterType::bookendedByLetters:
      return digitsInTheMiddle(text);
  }
  return {};
}

}  // namespace

std::optional<NumericClusterComponents> NumericClusterComponents::make(std::string_view text,
                                                                       const NumberDetector& numberDetector) {
  const std::string& decimalSeparator = numberDetector.symbols().decimalSeparator;
  const std::optional<NumericClusterType> type = typeOf(text, decimalSeparator);
  if (!type) return std::nullopt;
  const Span sandwich = sandwichOf(*type, text, decimalSeparator);
  if (sandwich.isEmpty()) return std::nullopt;

  NumericClusterComponents cluster;
  cluster.text_ = text;
  cluster.type = *type;
  cluster.sandwichComponent = component(text, sandwich);
  if (sandwich.start > 0) cluster.leadingComponent = component(text, {0, sandwich.start});
  if (sandwich.end < text.size()) cluster.trailingComponent = component(text, {sandwich.end, text.size()});

  const auto valueOf = [&](const std::optional<NumericClusterComponent>& part) {
    return part ? numberDetector.decimalValueOf(part->text) : std::nullopt;
  };
  switch (*type) {
    case NumericClusterType::numberFirst:
      cluster.leadingDecimal = valueOf(cluster.leadingComponent);
      if (!cluster.leadingDecimal) return std::nullopt;
      break;
    case NumericClusterType::wordFirst:
      cluster.trailingDecimal = valueOf(cluster.trailingComponent);
      if (!cluster.trailingDecimal) return std::nullopt;
      break;
    case NumericClusterType::bookendedByNumbers:
      cluster.leadingDecimal = valueOf(cluster.leadingComponent);
      cluster.trailingDecimal = valueOf(cluster.trailingComponent);
      if (!cluster.leadingDecimal || !cluster.trailingDecimal) return std::nullopt;
      break;
    case NumericClusterType::bookendedByLetters:
      cluster.sandwichDecimal = valueOf(cluster.sandwichComponent);
      if (!cluster.sandwichDecimal) return std::nullopt;
      break;
  }
  return cluster;
}

std::vector<NumericClusterComponent> NumericClusterComponents::potentialVariableNames() const {
  switch (type) {
    case NumericClusterType::bookendedByLetters:
      return {*leadingComponent, *trailingComponent};
    case NumericClusterType::bookendedByNumbers: {
      const std::size_t wordStart = leadingComponent->text.size();
      const std::size_t wordEnd = wordStart + sandwichComponent.text.size();
      return {component(text_, {wordStart, text_.size()}), component(text_, {0, wordEnd}), sandwichComponent};
    }
    case NumericClusterType::numberFirst:
    case NumericClusterType::wordFirst:
      return {sandwichComponent};
  }
  return {};
}

}  // namespace tavrine
