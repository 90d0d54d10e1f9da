#include "Foundation/NumberRecognition.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "Foundation/Text.h"

namespace tavrine::foundation {
namespace {

// Far beyond the range of decimals, far below the overflow of the type.
constexpr long kExponentLimit = 1'000'000'000'000;

// Full-width, small and script-specific forms count as the plain characters they stand for.
constexpr bool isPeriod(UChar32 c) { return c == '.' || c == 0x2024 || c == 0xFE52 || c == 0xFF0E || c == 0xFF61; }
constexpr bool isComma(UChar32 c) {
  return c == ',' || c == 0x066B || c == 0x2E41 || c == 0xFE10 || c == 0xFE50 || c == 0xFF0C;
}
constexpr bool isSpace(UChar32 c) {
  return c == ' ' || c == 0xA0 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F || c == 0x205F || c == 0x3000;
}
constexpr bool isApostrophe(UChar32 c) {
  return c == '\'' || c == 0x02BC || c == 0x055A || c == 0x066C || c == 0x1FBD || c == 0x1FBF || c == 0x2018 ||
         c == 0x2019 || c == 0xFF07;
}
constexpr bool isMinus(UChar32 c) {
  return c == '-' || c == 0x2010 || c == 0x2012 || c == 0x2013 || c == 0x207B || c == 0x208B || c == 0x2212 ||
         c == 0x2796 || c == 0xFE63 || c == 0xFF0D;
}
constexpr bool isPlus(UChar32 c) {
  return c == '+' || c == 0x207A || c == 0x208A || c == 0x2795 || c == 0xFB29 || c == 0xFE62 || c == 0xFF0B;
}

constexpr UChar32 kEnd = -1;

// A reader of code points that can look at the next one. Malformed bytes read as U+FFFD, which no rule accepts.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) { advance(); }

  UChar32 next() const { return next_; }
  bool atEnd() const { return next_ == kEnd; }

  void advance() {
    start_ = end_;
    if (end_ == text_.size()) {
      next_ = kEnd;
      return;
    }
    if (const char byte = text_[end_]; (byte & 0x80) == 0) {
      next_ = byte;
      ++end_;
      return;
    }
    const DecodedScalar decoded = decodeScalar(text_, end_);
    next_ = static_cast<UChar32>(decoded.scalar);
    end_ += decoded.length;
  }

  // Steps over `word`, ASCII letters in either case, if it comes next.
  bool take(std::string_view word) {
    const auto same = [](char a, char b) { return a == b || (isLetter(a) && (a ^ b) == 0x20); };
    const std::string_view ahead = text_.substr(start_, word.size());
    if (word.empty() || !std::equal(word.begin(), word.end(), ahead.begin(), ahead.end(), same)) return false;
    end_ = start_ + word.size();
    advance();
    return true;
  }

 private:
  static constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

  std::string_view text_;
  std::size_t start_ = 0;  // of the next code point
  std::size_t end_ = 0;
  UChar32 next_ = kEnd;
};

std::optional<unsigned> digitValue(UChar32 c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c < 0x80) return std::nullopt;
  const std::int32_t value = u_charDigitValue(c);
  if (value < 0) return std::nullopt;
  return static_cast<unsigned>(value);
}

class NumberReader {
 public:
  NumberReader(std::string_view text, const NumberSymbols& symbols, bool allowsGrouping)
      : reader_(text), symbols_(symbols), allowsGrouping_(allowsGrouping && symbols.primaryGroupingSize > 0) {
    const Reader separator(symbols.decimalSeparator);
    decimalSeparator_ = separator.next();
  }

  std::optional<Decimal> read(bool allowsPlus) {
    const bool isNegative = isMinus(reader_.next());
    if (isNegative || (allowsPlus && isPlus(reader_.next()))) reader_.advance();
    if (!readWholePart()) return std::nullopt;
    if (isDecimalSeparator(reader_.next())) {
      reader_.advance();
      builder_.addPoint();
      readDigits();
    }
    if (!hasDigit_) return std::nullopt;
    long exponent = 0;
    if (!reader_.atEnd() && !readExponent(exponent)) return std::nullopt;
    if (!reader_.atEnd()) return std::nullopt;
    return builder_.value(isNegative, exponent);
  }

 private:
  bool isDecimalSeparator(UChar32 c) const {
    if (c == kEnd) return false;
    if (isPeriod(decimalSeparator_)) return isPeriod(c);
    if (isComma(decimalSeparator_)) return isComma(c);
    return c == decimalSeparator_;
  }

  bool isGroupingSeparator(UChar32 c) const {
    return isSpace(c) || isApostrophe(c) || ((isPeriod(c) || isComma(c)) && !isDecimalSeparator(c));
  }

  int readDigits() {
    int count = 0;
    for (; const auto digit = digitValue(reader_.next()); reader_.advance()) {
      builder_.addDigit(*digit);
      if (count <= kLongestGroup) ++count;
    }
    hasDigit_ = hasDigit_ || count > 0;
    return count;
  }

  // False where the groups are wrong.
  bool readWholePart() {
    int group = readDigits();
    const UChar32 separator = reader_.next();
    if (!allowsGrouping_ || !isGroupingSeparator(separator)) return true;
    if (group == 0 || group > symbols_.secondaryGroupingSize) return false;
    while (reader_.next() == separator) {
      reader_.advance();
      group = readDigits();
      const bool isLast = reader_.next() != separator;
      if (group != (isLast ? symbols_.primaryGroupingSize : symbols_.secondaryGroupingSize)) return false;
    }
    return true;
  }

  bool readExponent(long& exponent) {
    if (!reader_.take(symbols_.exponentSymbol)) return false;
    const bool isNegative = isMinus(reader_.next());
    if (isNegative || isPlus(reader_.next())) reader_.advance();
    bool hasDigit = false;
    for (; const auto digit = digitValue(reader_.next()); reader_.advance()) {
      exponent = std::min(exponent * 10 + static_cast<long>(*digit), kExponentLimit);
      hasDigit = true;
    }
    if (isNegative) exponent = -exponent;
    return hasDigit;
  }

  static constexpr int kLongestGroup = 1000;  // counting further would change nothing, but could overflow

  Reader reader_;
  const NumberSymbols& symbols_;
  bool allowsGrouping_;
  UChar32 decimalSeparator_ = kEnd;
  DecimalBuilder builder_;
  bool hasDigit_ = false;
};

}  // namespace

std::optional<Decimal> parseStrict(std::string_view text, const NumberSymbols& symbols) {
  return NumberReader(text, symbols, true).read(false);
}

bool isStrictNumber(std::string_view text, const NumberSymbols& symbols) {
  return parseStrict(text, symbols).has_value();
}

std::optional<Decimal> parseUngrouped(std::string_view text, const NumberSymbols& symbols) {
  return NumberReader(text, symbols, false).read(true);
}

}  // namespace tavrine::foundation
