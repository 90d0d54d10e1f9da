#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/rbnf.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <vector>

#include "Foundation/Locale.h"
#include "Foundation/PluralRules.h"
#include "Foundation/SpellOut.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

TEST(Locale, IdentifiersAreNormalisedAndRead) {
  struct Case {
    std::string_view given, identifier, language, script, region;
  };
  for (const Case& c : rowsOf<Case>("Foundation/LocaleTests", "IdentifiersAreNormalisedAndRead")) {
    const Locale locale(c.given);
    EXPECT_EQ(locale.identifier(), c.identifier);
    EXPECT_EQ(locale.language(), c.language) << c.given;
    EXPECT_EQ(locale.script(), c.script) << c.given;
    EXPECT_EQ(locale.region(), c.region) << c.given;
  }
}

TEST(Locale, PosixNamesAreCut) {
  struct Case {
    std::string_view name, identifier;
  };
  for (const Case& c : rowsOf<Case>("Foundation/LocaleTests", "PosixNamesAreCut"))
    EXPECT_EQ(Locale::fromPosixName(c.name).identifier(), c.identifier) << c.name;
}

TEST(Locale, AttributesFollowTheRegion) {
  struct Case {
    std::string_view identifier, decimal;
    std::optional<std::string> grouping, currency, symbol;
    MeasurementSystem system;
  };
  for (const Case& c : rowsOf<Case>("Foundation/LocaleTests", "AttributesFollowTheRegion")) {
    const Locale locale(c.identifier);
    EXPECT_EQ(locale.decimalSeparator(), c.decimal) << c.identifier;
    EXPECT_EQ(locale.groupingSeparator(), c.grouping) << c.identifier;
    EXPECT_EQ(locale.currencyCode(), c.currency) << c.identifier;
    EXPECT_EQ(locale.currencySymbol(), c.symbol) << c.identifier;
    EXPECT_EQ(locale.measurementSystem(), c.system) << c.identifier;
    EXPECT_EQ(locale.percentSymbol(), "%") << c.identifier;
  }
}

TEST(Locale, ASharedSignMeansTheOwnCurrencyFirst) {
  const Locale us("en_US");
  const Locale australia("en_AU");
  const Locale germany("de_DE");
  const Locale china("zh_CN");
  EXPECT_EQ(us.currencyCodeForPrefix("$"), "USD");
  EXPECT_EQ(australia.currencyCodeForPrefix("$"), "AUD");
  EXPECT_EQ(germany.currencyCodeForPrefix("$"), "USD");
  EXPECT_EQ(china.currencyCodeForPrefix("¥"), "CNY");
  EXPECT_EQ(germany.currencyCodeForPrefix("¥"), "JPY");
  EXPECT_EQ(Locale("ja_JP").currencyCodeForPrefix("¥"), "JPY");
  EXPECT_EQ(china.currencyCodeForPrefix("£"), "GBP");
  EXPECT_EQ(us.currencyCodeForPrefix("R$"), "BRL");
  EXPECT_EQ(us.currencyCodeForPrefix("kr"), std::nullopt);
}

TEST(Locale, EqualByIdentifierAndSharedBetweenThreads) {
  EXPECT_EQ(Locale("en-US"), Locale("en_US"));
  EXPECT_NE(Locale("en_US"), Locale("en_GB"));
  EXPECT_EQ((std::unordered_set<Locale>{Locale("de_DE"), Locale("de-DE"), Locale("de_AT")}.size()), 2U);
  // Beyond what is kept they are still equal.
  std::vector<Locale> many;
  for (int i = 0; i < 3000; ++i) many.emplace_back("en_X" + std::to_string(i));
  EXPECT_EQ(many.back(), Locale("en_X2999"));

  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      const Locale locale("sv_SE");
      EXPECT_EQ(locale.currencyCode(), "SEK");
      EXPECT_EQ(locale.decimalSeparator(), ",");
      EXPECT_EQ(locale.dateFormatFromTemplate("yMMMMd"), "d MMMM y");
    });
  }
  for (std::thread& thread : threads) thread.join();
}

TEST(PluralRules, CategoriesByLanguage) {
  struct Case {
    std::string_view locale, number;
    PluralCategory want;
  };
  using enum PluralCategory;
  for (const Case& c : rowsOf<Case>("Foundation/LocaleTests", "CategoriesByLanguage"))
    EXPECT_EQ(pluralCategory(c.number, Locale(c.locale)), c.want) << c.locale << c.number;
  EXPECT_EQ(pluralCategory(1.0, Locale("en_US")), one);
  EXPECT_EQ(pluralCategory(2.0, Locale("ru_RU")), few);
}

TEST(SpellOut, EnglishIsThatOfTheLocaleData) {
  std::vector<std::int64_t> numbers = {1'000'000'000'000'000'000 - 1, 1'000'000'000'000'000'000};
  for (std::int64_t number = 0; number <= 130; ++number) numbers.push_back(number);
  for (std::int64_t power = 1000; power <= 100'000'000'000'000'000; power *= 10) {
    for (const std::int64_t number : {power - 1, power, power + 7, power + power / 1000 * 12})
      numbers.push_back(number);
  }
  std::int32_t count = 0;
  const icu::Locale* const locales = icu::Locale::getAvailableLocales(count);
  for (std::int32_t i = 0; i < count; ++i) {
    if (std::string_view(locales[i].getLanguage()) != "en") continue;
    UErrorCode status = U_ZERO_ERROR;
    const icu::RuleBasedNumberFormat oracle(icu::URBNF_SPELLOUT, locales[i], status);
    ASSERT_TRUE(U_SUCCESS(status));
    const SpellOut spellOut{Locale(locales[i].getName())};
    for (const std::int64_t number : numbers) {
      for (const std::int64_t signed_ : {number, -number}) {
        icu::UnicodeString text;
        icu::FieldPosition position;
        oracle.format(signed_, text, position, status);
        std::string want;
        text.toUTF8String(want);
        ASSERT_EQ(spellOut.words(signed_), want) << locales[i].getName();
      }
    }
  }
}

TEST(SpellOut, WordsByLanguage) {
  EXPECT_EQ(SpellOut(Locale("en_US")).words(121), "one hundred twenty-one");
  EXPECT_EQ(SpellOut(Locale("en_US")).words(-3), "minus three");
  EXPECT_EQ(SpellOut(Locale("de_DE")).words(21), "ein\u00ADund\u00ADzwanzig");
  EXPECT_EQ(SpellOut(Locale("zh_CN")).words(12), "十二");
}

}  // namespace
}  // namespace tavrine::foundation
