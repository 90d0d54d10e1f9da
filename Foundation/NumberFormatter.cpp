#include "Foundation/NumberFormatter.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace tavrine::foundation {
namespace {

// More places than any decimal has; what lies beyond would only be zeros.
constexpr int kMostPlaces = 999;

// A rounded number as ASCII digits: `digits` with the point behind the first `pointAt` of them, which may lie before
// the first or behind the last.
struct Digits {
  char digits[Decimal::kMaximumDigits];
  int count;
  int pointAt;

  explicit Digits(const Decimal& value) : count(value.writeDigits(digits)), pointAt(count + value.exponent()) {}

  // The digit at a place counted from the first digit; 0 around them.
  char at(int place) const { return place >= 0 && place < count ? digits[place] : '0'; }
};

class Writer {
 public:
  Writer(const NumberSymbols& symbols, std::string& text) : symbols_(symbols), text_(text) {}

  void digit(char ascii) {
    if (symbols_.usesLatinDigits) {
      text_ += ascii;
    } else {
      text_ += symbols_.digits[static_cast<std::size_t>(ascii - '0')];
    }
  }

  void wholePart(const Digits& number, bool groups) {
    if (number.pointAt <= 0) {
      digit('0');
      return;
    }
    const int primary = symbols_.primaryGroupingSize, secondary = std::max(1, symbols_.secondaryGroupingSize);
    groups = groups && primary > 0 && number.pointAt >= primary + symbols_.minimumGroupingDigits;
    for (int place = 0; place < number.pointAt; ++place) {
      const int left = number.pointAt - place;
      if (groups && place > 0 && left >= primary && (left - primary) % secondary == 0) {
        text_ += symbols_.groupingSeparator;
      }
      digit(number.at(place));
    }
  }

  // The places behind the point: all that are not zero, and at least `minimum`.
  void fraction(const Digits& number, int minimum) {
    const int places = std::max(minimum, number.count - number.pointAt);
    if (places <= 0) return;
    text_ += symbols_.decimalSeparator;
    for (int place = 0; place < places; ++place) digit(number.at(number.pointAt + place));
  }

  void integer(int value) {
    char buffer[12];
    const char* const end = std::to_chars(buffer, buffer + sizeof buffer, value < 0 ? -value : value).ptr;
    if (value < 0) text_ += symbols_.minusSign;
    for (const char* c = buffer; c != end; ++c) digit(*c);
  }

 private:
  const NumberSymbols& symbols_;
  std::string& text_;
};

// Zero has one digit before the point, whatever its canonical exponent says.
Decimal roundedToSignificantDigits(const Decimal& value, int digits, RoundingMode mode) {
  if (value.isZero()) return value;
  const int wholeDigits = decimalDigits(value.mantissa()) + value.exponent();
  return value.rounded(digits - wholeDigits, mode);
}

}  // namespace

void NumberFormatter::append(const Decimal& value, std::string& text) const {
  const RoundingMode mode =
      roundingMode.value_or(numberStyle == NumberStyle::none ? RoundingMode::bankers : RoundingMode::plain);
  const int minimum = std::clamp(minimumFractionDigits, 0, kMostPlaces);
  const int maximum = std::clamp(maximumFractionDigits, minimum, kMostPlaces);
  const bool isPercent = numberStyle == NumberStyle::percent;
  const Decimal shown = isPercent ? value * 100 : value;
  if (shown.isNaN()) {
    text += symbols->notANumber;
    return;
  }

  // The sign is that of the value before rounding: what was below zero doesn't look like nothing.
  if (value.isSignMinus()) {
    text += isPercent ? symbols->percentNegativePrefix : symbols->negativePrefix;
  } else if (isPercent) {
    text += symbols->percentPrefix;
  }
  Writer writer(*symbols, text);
  switch (numberStyle) {
    case NumberStyle::none:
      writer.wholePart(Digits(shown.rounded(0, mode)), false);
      break;
    case NumberStyle::decimal:
    case NumberStyle::percent: {
      const Digits digits(shown.rounded(maximum, mode));
      writer.wholePart(digits, usesGroupingSeparator);
      writer.fraction(digits, minimum);
      break;
    }
    case NumberStyle::scientific: {
      const bool isUnlimited = maximum == 0;
      const int mostDigits = minimum > 0 ? maximum : maximum + 1;
      Digits digits(isUnlimited ? shown : roundedToSignificantDigits(shown, mostDigits, mode));
      const int exponent = shown.isZero() ? 0 : digits.pointAt - 1;
      digits.pointAt = 1;
      writer.wholePart(digits, false);
      writer.fraction(digits, minimum - 1);
      text += symbols->exponentSymbol;
      writer.integer(exponent);
      break;
    }
  }
  if (value.isSignMinus()) {
    text += isPercent ? symbols->percentNegativeSuffix : symbols->negativeSuffix;
  } else if (isPercent) {
    text += symbols->percentSuffix;
  }
}

std::string NumberFormatter::string(const Decimal& value) const {
  std::string text;
  append(value, text);
  return text;
}

}  // namespace tavrine::foundation
