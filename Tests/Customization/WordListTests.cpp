#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/CalendarSymbols.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Helpers/NumberWordsList.h"

namespace tavrine {
namespace {

TEST(NumberWords, AreThoseOfTheLanguage) {
  struct Case {
    std::string_view locale, word;
    std::optional<std::int64_t> number;
  };
  constexpr Case kCases[] = {
      {"en_US", "zero", 0},
      {"en_US", "ninety-nine", 99},
      {"en_US", "Twelve", 12},
      {"en_US", "one hundred", 100},
      {"en_US", "nine thousand", 9'000},
      // The last word of a round number stands for the first number that ends with it.
      {"en_US", "hundred", 100},
      {"en_US", "thousand", 1'000},
      {"en_US", "million", 1'000'000},
      {"en_US", "billion", 1'000'000'000},
      {"en_US", "trillion", 1'000'000'000'000},
      {"en_US", "dozen", 12},
      {"en_US", "one hundred one", std::nullopt},
      {"en_US", "five hundreds", std::nullopt},
      {"en_US", "", std::nullopt},
      // Without the soft hyphens of the speller, and in any case.
      {"de_DE", "einundzwanzig", 21},
      {"de_DE", "einhundert", 100},
      {"de_DE", "Million", 1'000'000},
      {"de_DE", "dozen", std::nullopt},
      {"fr_FR", "vingt-et-un", 21},
      {"ja_JP", "二十一", 21},
      {"zh_CN", "五", std::nullopt},
      {"zh_Hant_TW", "five", std::nullopt},
  };
  for (const Case& c : kCases) {
    const NumberWordsList list{Locale(c.locale)};
    const NumberWord* const found = list.numberWordFor(c.word);
    EXPECT_EQ(found != nullptr ? std::optional(found->number) : std::nullopt, c.number) << c.locale << " " << c.word;
  }
}

TEST(DateWords, AreThoseOfTheLanguageAndTheEnglishOnes) {
  struct Case {
    std::string_view locale, word;
    std::optional<DateWordType> type;
    std::optional<int> index;
  };
  using enum DateWordType;
  constexpr Case kCases[] = {
      {"en_US", "March", month, 3},
      {"en_US", "mar", month, 3},
      {"en_US", "Sep", month, 9},
      {"en_US", "sept", month, 9},
      {"en_US", "monday", dayOfWeek, 2},
      {"en_US", "Mon", dayOfWeek, 2},
      // The name without "day".
      {"en_US", "wednes", dayOfWeek, 4},
      {"en_US", "tues", dayOfWeek, 3},
      {"en_US", "AM", am, std::nullopt},
      {"en_US", "pm", pm, std::nullopt},
      {"en_US", "q4", quarter, 3},
      {"en_US", "day", std::nullopt, std::nullopt},
      {"en_US", "mars", std::nullopt, std::nullopt},
      // Englishes shorten some months differently; all of them are understood.
      {"en_GB", "sep", month, 9},
      {"en_AU", "jul", month, 7},
      {"de_DE", "März", month, 3},
      {"de_DE", "MÄRZ", month, 3},
      {"de_DE", "dienstag", dayOfWeek, 3},
      {"de_DE", "october", month, 10},
      // Abbreviations with and without their dot.
      {"fr_FR", "janv.", month, 1},
      {"fr_FR", "janv", month, 1},
      {"fr_FR", "lun", dayOfWeek, 2},
      // Russian months within a date and by themselves; no English ones beside them.
      {"ru_RU", "марта", month, 3},
      {"ru_RU", "март", month, 3},
      {"ru_RU", "march", std::nullopt, std::nullopt},
      {"zh_CN", "三月", month, 3},
  };
  for (const Case& c : kCases) {
    const Locale locale(c.locale);
    const DateWordsList list(Calendar(preferredCalendarFor(locale), locale, TimeZone::current()));
    const DateWord* const found = list.dateWordFor(c.word);
    ASSERT_EQ(found != nullptr, c.type.has_value()) << c.locale << " " << c.word;
    if (found == nullptr) continue;
    EXPECT_EQ(toString(found->type), toString(*c.type)) << c.locale << " " << c.word;
    EXPECT_EQ(found->index, c.index) << c.locale << " " << c.word;
  }
}

}  // namespace
}  // namespace tavrine
