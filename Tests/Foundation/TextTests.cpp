#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <memory>
#include <random>

#include "Foundation/Text.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

using namespace std::string_view_literals;

std::string repeated(std::string_view text, std::size_t times) {
  std::string result;
  result.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

TEST(TextEncoding, InvalidBytesBecomeOneReplacementPerBrokenSequence) {
  struct Case {
    std::string_view bytes, want;
  };
  const Case cases[] = {
      {"plain", "plain"},
      {"é€😀", "é€😀"},
      {"\xEF\xBF\xBD", "\xEF\xBF\xBD"},                  // U+FFFD itself is valid
      {"a\x80z", "a\uFFFDz"},                            // a continuation without a lead
      {"\xC0\xAF", "\uFFFD\uFFFD"},                      // overlong
      {"\xE0\x80\xAF", "\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
      {"\xE2\x82", "\uFFFD"},                            // cut off at the end
      {"\xE2\x82x", "\uFFFDx"},                          // cut off by another character
      {"\xF0\x9F\x98", "\uFFFD"},                        // three bytes, as U+FFFD has, but not it
      {"\xFF\xFE", "\uFFFD\uFFFD"},
      {"a\0b"sv, "a\0b"sv},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(sanitizedUtf8(c.bytes), c.want) << ::testing::PrintToString(c.bytes);
    EXPECT_EQ(isValidUtf8(c.bytes), c.bytes == c.want) << ::testing::PrintToString(c.bytes);
  }
}

TEST(TextEncoding, EveryScalarSurvivesTheWayThere) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; scalar += scalar < 0x3000 ? 1 : 61) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    const std::string text = stringFromScalar(scalar);
    ASSERT_EQ(singleScalar(text), scalar);
    ASSERT_EQ(utf16Length(text), scalar > 0xFFFF ? 2U : 1U);
  }
  EXPECT_EQ(stringFromScalar(0xD800), "\uFFFD");
  EXPECT_EQ(stringFromScalar(0x110000), "\uFFFD");
}

TEST(TextRanges, SlicesByUtf16) {
  struct Case {
    std::string_view text;
    NSRange range;
    std::string_view want;
  };
  const Case cases[] = {
      {"$10 + 20%", {6, 3}, "20%"},
      {"5€ + 😀x", {1, 1}, "€"},
      {"5€ + 😀x", {5, 2}, "😀"},
      {"5€ + 😀x", {7, 1}, "x"},
      {"5€ + 😀x", {6, 1}, "😀"},  // from the middle of a pair
      {"abc", {1, 100}, "bc"},
      {"abc", {3, 1}, ""},
      {"abc", {4000000000U, 4000000000U}, ""},
      {"", {0, 1}, ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(sliceUtf16(c.text, c.range), c.want) << c.text << " " << c.range.location << "+" << c.range.length;
  }
}

TEST(TextRanges, RangesMeetAndSaturate) {
  EXPECT_TRUE((NSRange{2, 3}.intersects({4, 9})));
  EXPECT_FALSE((NSRange{2, 3}.intersects({5, 1})));
  EXPECT_FALSE((NSRange{2, 3}.intersects({3, 0})));
  EXPECT_TRUE((NSRange{2, 3}.contains(NSRange{2, 3})));
  EXPECT_FALSE((NSRange{2, 3}.contains(5U)));
  EXPECT_EQ((NSRange{4000000000U, 4000000000U}.upperBound()), 4294967295U);
  EXPECT_EQ((NSRange{7, 2}.unionWith({1, 1})), (NSRange{1, 8}));
}

// --- Characters ------------------------------------------------------------------------------------------------

TEST(TextCharacters, PropertiesAgreeWithTheUnicodeTables) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; scalar += scalar < 0x400 ? 1 : 37) {
    const auto c = static_cast<UChar32>(scalar);
    const auto category = U_GET_GC_MASK(c);
    ASSERT_EQ(isWhitespace(scalar), u_isUWhiteSpace(c) != 0) << c;
    ASSERT_EQ(hasNumericType(scalar), u_getIntPropertyValue(c, UCHAR_NUMERIC_TYPE) != U_NT_NONE) << c;
    ASSERT_EQ(isAlphabetic(scalar), u_hasBinaryProperty(c, UCHAR_ALPHABETIC) != 0) << c;
    ASSERT_EQ(isSymbol(scalar), (category & U_GC_S_MASK) != 0) << c;
    ASSERT_EQ(isPunctuation(scalar), (category & U_GC_P_MASK) != 0) << c;
    ASSERT_EQ(isLowercaseLetter(scalar), u_charType(c) == U_LOWERCASE_LETTER) << c;
    ASSERT_EQ(isUppercaseLetter(scalar), u_charType(c) == U_UPPERCASE_LETTER) << c;
    ASSERT_EQ(decimalDigitValue(scalar), u_charDigitValue(c)) << c;
  }
}

TEST(TextCharacters, ClustersAsReadersSeeThem) {
  struct Case {
    std::string_view text;
    std::vector<std::string_view> want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/TextTests", "ClustersAsReadersSeeThem"))
    EXPECT_EQ(clustersOf(c.text), c.want) << c.text;
  EXPECT_EQ(lastCluster("ae\u0301"), "e\u0301");
  EXPECT_TRUE(isSingleCluster("\r\n"));
  EXPECT_FALSE(isSingleCluster(""));
}

TEST(TextCharacters, ClustersAgreeWithTheBreakIteratorOnRandomTexts) {
  // Scalars that join in some way with their neighbours, and some that don't.
  constexpr char32_t pool[] = {
      U'a',   U'5',   U' ',   U'\r',  U'\n',  0x00,    0xA9,    0xAD,    0xE9,    0x300,   0x301,   0x308,   0x600,
      0x903,  0x915,  0x937,  0x94D,  0x93C,  0x93F,   0x9A4,   0x9CD,   0xAB7,   0xACD,   0xB15,   0xB4D,   0xC15,
      0xC4D,  0xD15,  0xD4D,  0xD4E,  0xE33,  0x1100,  0x1161,  0x11A8,  0x1112,  0x200B,  0x200C,  0x200D,  0x20E3,
      0x2764, 0x4E94, 0xAC00, 0xAC01, 0xFE0F, 0x1F1EB, 0x1F1F7, 0x1F3FD, 0x1F468, 0x1F469, 0x1F600, 0xE0061,
  };
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> oracle(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  ASSERT_TRUE(U_SUCCESS(status));
  std::mt19937 random(20240310);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (std::size_t left = 1 + random() % 9; left > 0; --left) appendScalar(text, pool[random() % std::size(pool)]);
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    oracle->setText(units);
    std::vector<std::string> want;
    for (std::int32_t start = oracle->first(), end = oracle->next(); end != icu::BreakIterator::DONE;
         start = end, end = oracle->next()) {
      units.tempSubStringBetween(start, end).toUTF8String(want.emplace_back());
    }
    const auto views = clustersOf(text);
    ASSERT_EQ(std::vector<std::string>(views.begin(), views.end()), want) << text;
  }
}

TEST(TextCharacters, AMegabyteOfMarksIsOneCharacterAndDoneAtOnce) {
  // Marks of descending class would be sorted by every step that normalises: quadratic if it is done naively.
  const std::string marks = "e" + repeated("\u0301", 250000) + repeated("\u0323", 250000);
  EXPECT_EQ(clusterCount(marks), 1U);
  EXPECT_EQ(strippingDiacritics(marks), "e");
  EXPECT_EQ(lowercased(marks), marks);
  EXPECT_EQ(clusterCount(repeated("🇫", 100001)), 50001U);
}

// --- Case and accents ------------------------------------------------------------------------------------------

TEST(TextCase, Maps) {
  struct Case {
    std::string_view text, lower, upper, capitalized, bare;
  };
  for (const Case& c : rowsOf<Case>("Foundation/TextTests", "Maps")) {
    EXPECT_EQ(lowercased(c.text), c.lower);
    EXPECT_EQ(isLowercased(c.text), c.text == c.lower) << c.text;
    EXPECT_EQ(uppercased(c.text), c.upper);
    EXPECT_EQ(capitalizedFirst(c.text), c.capitalized);
    EXPECT_EQ(strippingDiacritics(c.text), c.bare);
  }
}

TEST(TextCase, ComparesWithoutCase) {
  EXPECT_TRUE(equalsIgnoringCase("STRASSE", "straße"));
  EXPECT_TRUE(equalsIgnoringCase("Ünit", "üNIT"));
  EXPECT_FALSE(equalsIgnoringCase("unit", "ünit"));
  EXPECT_LT(caseInsensitiveCompare("apple", "BANANA"), 0);
  EXPECT_GT(caseInsensitiveCompare("b", "ABC"), 0);
  EXPECT_LT(caseInsensitiveCompare("ab", "ABC"), 0);
  EXPECT_LT(caseInsensitiveCompare("z", "é"), 0);
}

// --- Cutting and joining ---------------------------------------------------------------------------------------

TEST(TextCutting, TrimsAllWhitespace) {
  struct Case {
    std::string_view text, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/TextTests", "TrimsAllWhitespace")) EXPECT_EQ(trimmed(c.text), c.want);
}

TEST(TextCutting, SplitsReplacesAndJoins) {
  using Parts = std::vector<std::string_view>;
  EXPECT_EQ(split("a,,b,", ','), (Parts{"a", "", "b", ""}));
  EXPECT_EQ(split("a,,b,", ',', EmptyParts::drop), (Parts{"a", "b"}));
  EXPECT_EQ(split("", ','), (Parts{""}));
  EXPECT_EQ(splitAtWhitespace(" a \u00A0b\n"), (Parts{"a", "b"}));
  EXPECT_EQ(replacingAll("xaxax", "x", "--"), "--a--a--");
  EXPECT_EQ(replacingAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replacingAll("abc", "", "x"), "abc");
  EXPECT_EQ(joined(Parts{"a", "", "b"}, ", "), "a, , b");
  EXPECT_EQ(joined(Parts{}, ", "), "");
}

}  // namespace
}  // namespace tavrine::foundation
