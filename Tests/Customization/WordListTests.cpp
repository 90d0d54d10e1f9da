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
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

TEST(NumberWords, AreThoseOfTheLanguage) {
  struct Case {
    std::string_view locale, word;
    std::optional<std::int64_t> number;
  };
  for (const Case& c : rowsOf<Case>("Customization/WordListTests", "AreThoseOfTheLanguage")) {
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
  for (const Case& c : rowsOf<Case>("Customization/WordListTests", "AreThoseOfTheLanguageAndTheEnglishOnes")) {
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
