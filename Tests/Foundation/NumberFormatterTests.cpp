#include <gtest/gtest.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>

#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Foundation/NumberFormatter.h"
#include "Foundation/NumberRecognition.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

using namespace literals;

constexpr const char* kLocales[] = {"en_US", "en_IN", "en_AU", "en_DE", "de_DE", "de_CH", "fr_FR", "es_ES",
                                    "ru_RU", "zh_CN", "ja_JP", "hi_IN", "ar_EG", "sv_SE", "tr_TR", "pl_PL"};

Decimal D(std::string_view text) { return Decimal::parse(text).value(); }

std::string utf8(const icu::UnicodeString& text) {
  std::string result;
  return text.toUTF8String(result);
}

std::unique_ptr<icu::DecimalFormat> reference(const char* locale, UNumberFormatStyle style) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::DecimalFormat> format(
      dynamic_cast<icu::DecimalFormat*>(icu::NumberFormat::createInstance(locale, style, status)));
  EXPECT_TRUE(U_SUCCESS(status) && format != nullptr) << locale;
  format->setRoundingMode(icu::DecimalFormat::kRoundHalfUp);
  return format;
}

std::string format(const icu::DecimalFormat& format, const Decimal& value) {
  UErrorCode status = U_ZERO_ERROR;
  icu::UnicodeString text;
  format.format(icu::StringPiece(value.description()), text, nullptr, status);
  EXPECT_TRUE(U_SUCCESS(status));
  return utf8(text);
}

std::vector<Decimal> sampleValues() {
  std::vector<Decimal> values = {0,
                                 1,
                                 10,
                                 999,
                                 1000,
                                 9999,
                                 10000,
                                 -1234567,
                                 "0.5"_dec,
                                 "-0.0004"_dec,
                                 "9.9995"_dec,
                                 "0.0005"_dec,
                                 "1e20"_dec,
                                 "12345678901234567890123456789012345678"_dec,
                                 "1e-20"_dec};
  std::mt19937_64 random(11);
  for (int i = 0; i < 600; ++i) {
    std::string text = random() % 4 == 0 ? "-" : "";
    const auto count = 1 + random() % 20;
    for (std::size_t k = 0; k < count; ++k) text += static_cast<char>('0' + random() % 10);
    if (random() % 5 == 0) text.back() = '5';
    values.push_back(D(text + "e-" + std::to_string(random() % (count + 4))));
  }
  return values;
}

TEST(NumberFormatter, WritesAsTheReferenceDoes) {
  struct Places {
    int minimum, maximum;
  };
  struct Style {
    NumberStyle style;
    UNumberFormatStyle reference;
  };
  const std::vector<Decimal> values = sampleValues();
  for (const char* locale : kLocales) {
    NumberFormatter formatter(locale);
    for (const Style& style : {Style{NumberStyle::decimal, UNUM_DECIMAL}, Style{NumberStyle::percent, UNUM_PERCENT},
                               Style{NumberStyle::scientific, UNUM_SCIENTIFIC}}) {
      formatter.numberStyle = style.style;
      const auto expected = reference(locale, style.reference);
      icu::UnicodeString pattern;
      // Hindi puts brackets around; nobody reads that as a number.
      if (style.style == NumberStyle::scientific && expected->toPattern(pattern) != u"#E0") continue;
      for (const Places& places : {Places{0, 0}, {0, 3}, {2, 2}, {2, 6}, {0, 20}}) {
        formatter.minimumFractionDigits = places.minimum;
        formatter.maximumFractionDigits = places.maximum;
        expected->setMaximumFractionDigits(places.maximum);
        expected->setMinimumFractionDigits(places.minimum);
        for (const bool groups : {true, false}) {
          if (style.style == NumberStyle::scientific && groups) continue;
          formatter.usesGroupingSeparator = groups;
          expected->setGroupingUsed(groups);
          for (const Decimal& value : values) {
            ASSERT_EQ(formatter.string(value), format(*expected, value))
                << locale << " " << value << ", style " << static_cast<int>(style.style) << ", places "
                << places.minimum << " to " << places.maximum;
          }
        }
      }
    }
  }
}

TEST(NumberFormatter, StyleNoneWritesWholeNumbersAsTheReferenceDoes) {
  NumberFormatter formatter("en_US");
  formatter.numberStyle = NumberStyle::none;
  UErrorCode status = U_ZERO_ERROR;
  icu::DecimalFormat expected(u"#", icu::DecimalFormatSymbols(icu::Locale::getUS(), status), status);
  ASSERT_TRUE(U_SUCCESS(status));
  for (const Decimal& value : sampleValues()) {
    EXPECT_EQ(formatter.string(value), format(expected, value)) << value;
  }
}

TEST(NumberFormatter, Examples) {
  struct Case {
    const char* locale;
    NumberStyle style;
    int minimum, maximum;
    std::string_view value, want;
  };
  using enum NumberStyle;
  for (const Case& c : rowsOf<Case>("Foundation/NumberFormatterTests", "Examples")) {
    NumberFormatter formatter(c.locale);
    formatter.numberStyle = c.style;
    formatter.minimumFractionDigits = c.minimum;
    formatter.maximumFractionDigits = c.maximum;
    EXPECT_EQ(formatter.string(D(c.value)), c.want) << c.locale << " " << c.value;
  }
  NumberFormatter down("en_US");
  down.maximumFractionDigits = 1;
  down.roundingMode = RoundingMode::down;
  EXPECT_EQ(down.string("-1.23"_dec), "-1.3");
  EXPECT_EQ(NumberFormatter("en_US").string(Decimal::nan()), "NaN");
  std::string text = "about ";
  NumberFormatter("en_US").append(1000, text);
  EXPECT_EQ(text, "about 1,000");
}

TEST(NumberFormatter, EveryDecimalHasAText) {
  for (const NumberStyle style :
       {NumberStyle::none, NumberStyle::decimal, NumberStyle::percent, NumberStyle::scientific}) {
    NumberFormatter formatter("en_US");
    formatter.numberStyle = style;
    formatter.minimumFractionDigits = std::numeric_limits<int>::max();
    formatter.maximumFractionDigits = std::numeric_limits<int>::max();
    for (const Decimal& value : {Decimal::greatestFiniteMagnitude(), Decimal::leastNonzeroMagnitude(), Decimal(0),
                                 Decimal::greatestFiniteMagnitude().negated()}) {
      EXPECT_FALSE(formatter.string(value).empty());
      EXPECT_LT(formatter.string(value).size(), 1500u);
    }
  }
}

// ------------------------------------------------------------------------------------------------ recognition

std::optional<Decimal> parse(icu::DecimalFormat& format, const icu::UnicodeString& text) {
  icu::ParsePosition position(0);
  icu::Formattable value;
  format.parse(text, value, position);
  if (position.getIndex() == 0 || position.getIndex() != text.length() || position.getErrorIndex() >= 0) return {};
  UErrorCode status = U_ZERO_ERROR;
  const icu::StringPiece digits = value.getDecimalNumber(status);
  return Decimal::parse({digits.data(), static_cast<std::size_t>(digits.length())});
}

// Texts that are numbers more often than chance: digits, then mostly separators at every third place.
std::string randomNumberText(std::mt19937_64& random) {
  static constexpr const char* kOdd[] = {",",      ".",      " ",      "'",      "\u2019", "\u202F", "\u00A0",
                                         "e",      "E",      "-",      "+",      "_",      "5",      "\u0663",
                                         "\uFF17", "\u066B", "\u066C", "\u2212", "x",      "\uFF0C"};
  static constexpr const char* kSeparators[] = {",", ".", " ", "'", "\u2019", "\u202F", "\u00A0", "\u066C"};
  const char* const separator = kSeparators[random() % std::size(kSeparators)];
  std::string text = random() % 8 == 0 ? "-" : "";
  const auto groups = random() % 4;
  for (std::size_t i = 0; i <= groups; ++i) {
    auto count = i == 0 ? 1 + random() % 4 : random() % 10 == 0 ? random() % 5 : random() % 6 == 0 ? 2 : 3;
    if (groups == 0 && random() % 2 == 0) count += 6;
    for (std::size_t k = 0; k < count; ++k) text += static_cast<char>('0' + random() % 10);
    if (i < groups) text += separator;
  }
  if (random() % 2 == 0) text += std::string(random() % 2 == 0 ? "." : ",") + std::to_string(random() % 1000);
  if (random() % 4 == 0) text += std::string(random() % 2 == 0 ? "e" : "E-") + std::to_string(random() % 30);
  if (random() % 3 == 0) {
    // Only at the edges of characters: elsewhere it would make other bytes of them.
    std::size_t place = random() % (text.size() + 1);
    while (place < text.size() && (static_cast<unsigned char>(text[place]) & 0xC0) == 0x80) ++place;
    text.insert(place, kOdd[random() % std::size(kOdd)]);
  }
  return text;
}

TEST(NumberRecognition, AcceptsAndReadsWhatTheReferenceDoes) {
  std::mt19937_64 random(17);
  for (const char* locale : kLocales) {
    const auto expected = reference(locale, UNUM_DECIMAL);
    expected->setLenient(false);
    const NumberSymbols& symbols = NumberSymbols::forLocale(locale);
    int accepted = 0;
    for (int i = 0; i < 3000; ++i) {
      const std::string text = randomNumberText(random);
      const auto want = parse(*expected, icu::UnicodeString::fromUTF8(text));
      const auto value = parseStrict(text, symbols);
      ASSERT_EQ(value.has_value(), want.has_value()) << locale << " [" << text << "]";
      if (!want) continue;
      ++accepted;
      EXPECT_EQ(*value, *want) << locale << " [" << text << "]";
    }
    EXPECT_GT(accepted, 300) << locale;  // else the texts tell nothing
  }
}

TEST(NumberRecognition, Examples) {
  struct Case {
    const char* locale;
    std::string_view text;
    std::optional<std::string_view> want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/NumberFormatterTests", "Examples 2")) {
    const NumberSymbols& symbols = NumberSymbols::forLocale(c.locale);
    const auto value = parseStrict(c.text, symbols);
    ASSERT_EQ(value.has_value(), c.want.has_value()) << c.locale << " [" << c.text << "]";
    EXPECT_EQ(isStrictNumber(c.text, symbols), c.want.has_value());
    if (!value) continue;
    EXPECT_EQ(value->description(), *c.want) << c.locale << " [" << c.text << "]";
  }
}

TEST(NumberRecognition, UngroupedNumbersHaveNoSeparators) {
  const NumberSymbols& german = NumberSymbols::forLocale("de_DE");
  EXPECT_EQ(parseUngrouped("1234567,5", german), "1234567.5"_dec);
  EXPECT_EQ(parseUngrouped("+5e2", german), 500);
  EXPECT_EQ(parseUngrouped("-,5", german), "-0.5"_dec);
  for (const std::string_view text : {"1.000", "1 000", "", ",", "1,5,5", "abc"}) {
    EXPECT_FALSE(parseUngrouped(text, german).has_value()) << text;
  }
}

TEST(NumberRecognition, ReadsMillionsOfDigits) {
  const NumberSymbols& symbols = NumberSymbols::forLocale("en_US");
  EXPECT_EQ(parseStrict("0." + std::string(1'000'000, '3'), symbols), D("0." + std::string(38, '3')));
  std::string grouped = "1", plain = "1";
  for (int i = 0; i < 300'000; ++i) grouped += ",000";
  EXPECT_EQ(parseStrict(grouped + "e-900000", symbols), 1);
  EXPECT_FALSE(parseStrict(grouped + ",00", symbols).has_value());
}

TEST(NumberSymbols, AreSharedBetweenThreadsAndSpellings) {
  const NumberSymbols* const german = &NumberSymbols::forLocale("de_DE");
  EXPECT_EQ(&NumberSymbols::forLocale("de-DE"), german);
  EXPECT_EQ(&NumberSymbols::forLocale("C"), &NumberSymbols::forLocale("en_US"));
  std::vector<std::thread> threads;
  std::vector<const NumberSymbols*> found(8);
  for (std::size_t i = 0; i < found.size(); ++i) {
    threads.emplace_back([&found, i] { found[i] = &NumberSymbols::forLocale("nl_NL"); });
  }
  for (std::thread& thread : threads) thread.join();
  for (const NumberSymbols* const symbols : found) EXPECT_EQ(symbols, found[0]);
  EXPECT_EQ(found[0]->decimalSeparator, ",");
}

}  // namespace
}  // namespace tavrine::foundation
