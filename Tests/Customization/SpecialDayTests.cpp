#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Parsing/Helpers/SpecialDayList.h"
#include "TavrineCore/Parsing/Primitives/SpecialDayDates.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

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
  for (const Case& c : rowsOf<Case>("Customization/SpecialDayTests", "MovableFeasts")) {
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
