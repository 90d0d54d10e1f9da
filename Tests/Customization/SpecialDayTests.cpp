#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Parsing/Helpers/SpecialDayList.h"
#include "TavrineCore/Parsing/Primitives/SpecialDayDates.h"

namespace tavrine {
namespace {

using enum SpecialDay::SpecialDayType;

/// "2024-03-31", or "none".
std::string dayText(SpecialDay::SpecialDayType type, int year) {
  const std::optional<DateComponents> components = dateComponentsOf(type, year);
  if (!components) return "none";
  const auto padded = [](std::int64_t value) { return (value < 10 ? "0" : "") + std::to_string(value); };
  return std::to_string(*components->year) + "-" + padded(*components->month) + "-" + padded(*components->day);
}

TEST(SpecialDayDatesTest, MovableFeasts) {
  struct Case {
    SpecialDay::SpecialDayType type;
    std::string_view day;
  };
  constexpr Case kCases[] = {
      // The earliest and the latest that it can be, then a run of years as published.
      {easterSunday, "1818-03-22"},   {easterSunday, "1943-04-25"},   {easterSunday, "2038-04-25"},
      {easterSunday, "2285-03-22"},   {easterSunday, "2000-04-23"},   {easterSunday, "2008-03-23"},
      {easterSunday, "2011-04-24"},   {easterSunday, "2016-03-27"},   {easterSunday, "2017-04-16"},
      {easterSunday, "2018-04-01"},   {easterSunday, "2019-04-21"},   {easterSunday, "2020-04-12"},
      {easterSunday, "2021-04-04"},   {easterSunday, "2022-04-17"},   {easterSunday, "2023-04-09"},
      {easterSunday, "2024-03-31"},   {easterSunday, "2025-04-20"},   {easterSunday, "2026-04-05"},
      {easterSunday, "2027-03-28"},   {easterSunday, "2028-04-16"},   {easterSunday, "2029-04-01"},
      {easterSunday, "2030-04-21"},   {goodFriday, "2024-03-29"},     {goodFriday, "2018-03-30"},
      {goodFriday, "2026-04-03"},     {thanksgiving, "2018-11-22"},   {thanksgiving, "2019-11-28"},
      {thanksgiving, "2020-11-26"},   {thanksgiving, "2021-11-25"},   {thanksgiving, "2022-11-24"},
      {thanksgiving, "2023-11-23"},   {thanksgiving, "2024-11-28"},   {thanksgiving, "2026-11-26"},
      {blackFriday, "2018-11-23"},    {blackFriday, "2024-11-29"},    {chineseNewYear, "1990-01-27"},
      {chineseNewYear, "2000-02-05"}, {chineseNewYear, "2010-02-14"}, {chineseNewYear, "2015-02-19"},
      {chineseNewYear, "2020-01-25"}, {chineseNewYear, "2021-02-12"}, {chineseNewYear, "2022-02-01"},
      {chineseNewYear, "2023-01-22"}, {chineseNewYear, "2024-02-10"}, {chineseNewYear, "2025-01-29"},
      {chineseNewYear, "2026-02-17"}, {chineseNewYear, "2027-02-06"}, {chineseNewYear, "2028-01-26"},
      {chineseNewYear, "2029-02-13"}, {chineseNewYear, "2030-02-03"}, {chineseNewYear, "2033-01-31"},
      {chineseNewYear, "2034-02-19"}, {ramadanStart, "2024-03-10"},   {ramadanStart, "2025-02-28"},
      {ramadanStart, "2026-02-17"},   {ramadanStart, "2030-01-04"},   {ramadanEnd, "2024-04-09"},
      {ramadanEnd, "2025-03-29"},     {ramadanEnd, "2026-03-19"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(dayText(c.type, std::stoi(std::string(c.day.substr(0, 4)))), c.day) << toString(c.type);
  }
}

TEST(SpecialDayDatesTest, FixedFeastsStayAndFarYearsEnd) {
  for (const int year : {1, 1582, 2024, 9999, 32766}) {
    const std::string prefix = std::to_string(year);
    EXPECT_EQ(dayText(christmasEve, year), prefix + "-12-24");
    EXPECT_EQ(dayText(christmasDay, year), prefix + "-12-25");
    EXPECT_EQ(dayText(boxingDay, year), prefix + "-12-26");
    EXPECT_EQ(dayText(newYearsEve, year), prefix + "-12-31");
    EXPECT_EQ(dayText(newYearsDay, year), prefix + "-01-01");
    EXPECT_EQ(dayText(valentinesDay, year), prefix + "-02-14");
    EXPECT_EQ(dayText(halloween, year), prefix + "-10-31");
  }
  for (const int year : {-5000, -1, 0, 32767, 2000000000}) EXPECT_EQ(dayText(easterSunday, year), "none") << year;
  EXPECT_EQ(dayText(chineseNewYear, 30000), "none");
}

TEST(SpecialDayDatesTest, BecomeMomentsOnACalendar) {
  const Calendar paris(Calendar::Identifier::gregorian, Locale("en_US"), TimeZone("Europe/Paris"));
  // Midnight in Paris: an hour before midnight in Greenwich.
  EXPECT_EQ(dateOf(christmasDay, 2025, paris), Date(1766617200));
  EXPECT_EQ(dateOf(christmasDay, 40000, paris), std::nullopt);
}

TEST(SpecialDayListTest, EveryNameLeadsToItsDay) {
  const std::vector<SpecialDay> days = StaticResouces::localizedSpecialDays();
  EXPECT_EQ(days.size(), 14U);
  const SpecialDayList list(days);
  for (const SpecialDay& day : days) {
    for (const std::string& alias : day.aliases) {
      const std::string firstWord = alias.substr(0, alias.find_first_of(" -"));
      const auto* const phrases = list.multiWordSpecialDaysBeginningWith(firstWord);
      const SpecialDay* found = list.specialDayFor(alias);
      if (found == nullptr && phrases != nullptr) {
        for (const auto& phrase : *phrases) {
          if (phrase.phrase == alias) found = &phrase.day;
        }
      }
      ASSERT_NE(found, nullptr) << alias;
      EXPECT_EQ(found->type, day.type) << alias;
    }
  }
}

TEST(SpecialDayListTest, LongerPhrasesComeFirst) {
  const SpecialDayList list({{christmasDay, {"Christmas", "Christmas day"}}, {christmasEve, {"christmas day eve"}}});
  EXPECT_EQ(list.specialDayFor("CHRISTMAS")->type, christmasDay);
  EXPECT_EQ(list.specialDayFor("christmas day"), nullptr);
  const auto* const phrases = list.multiWordSpecialDaysBeginningWith("Christmas");
  ASSERT_NE(phrases, nullptr);
  ASSERT_EQ(phrases->size(), 2U);
  EXPECT_EQ(phrases->front().day.type, christmasEve);
  EXPECT_EQ(list.multiWordSpecialDaysBeginningWith("easter"), nullptr);
}

}  // namespace
}  // namespace tavrine
