#include "Foundation/CalendarSystem.h"

#include <algorithm>
#include <memory>

#include "Foundation/CivilDay.h"
#include "Foundation/IcuCalendarSystem.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

/// The Gregorian calendar, and those that only count its years from another one.
class GregorianSystem final : public CalendarSystem {
 public:
  /// `yearsAhead` is what the calendar counts more than the Gregorian one; with any, it has but one era.
  explicit GregorianSystem(std::int64_t yearsAhead) : yearsAhead_(yearsAhead) {}

  [[nodiscard]] DayFields fieldsOf(std::int64_t dayNumber) const override {
    const CivilDay civil = civilDayOf(std::clamp(dayNumber, kFirstDay, kLastDay));
    const std::int64_t year = civil.year + yearsAhead_;
    if (yearsAhead_ != 0) return {0, year, year, civil.month, civil.day};
    return {year > 0 ? 1 : 0, year > 0 ? year : 1 - year, year, civil.month, civil.day};
  }

  [[nodiscard]] std::optional<std::int64_t> firstDayOf(std::optional<std::int64_t> era, std::int64_t year,
                                                       std::int64_t month) const override {
    if (era == 0 && yearsAhead_ == 0) year = 1 - year;
    year += floorDivide(month - 1, 12) - yearsAhead_;
    if (year < kFirstYear || year > kLastYear) return std::nullopt;
    return foundation::dayNumberOf({year, static_cast<int>(floorModulo(month - 1, 12)) + 1, 1});
  }

  [[nodiscard]] std::optional<std::int64_t> adding(std::int64_t years, std::int64_t months,
                                                   std::int64_t dayNumber) const override {
    const CivilDay civil = civilDayOf(dayNumber);
    const std::int64_t month = civil.month - 1 + months;
    const std::int64_t year = civil.year + years + floorDivide(month, 12);
    if (year < kFirstYear || year > kLastYear) return std::nullopt;
    CivilDay moved{year, static_cast<int>(floorModulo(month, 12)) + 1, 1};
    moved.day = std::min(civil.day, daysInCivilMonth(moved.year, moved.month));
    return foundation::dayNumberOf(moved);
  }

  [[nodiscard]] std::int64_t monthsInYearOf(std::int64_t /*dayNumber*/) const override { return 12; }

  [[nodiscard]] std::int64_t daysInMonthOf(std::int64_t dayNumber) const override {
    const CivilDay civil = civilDayOf(dayNumber);
    return daysInCivilMonth(civil.year, civil.month);
  }

 private:
  std::int64_t yearsAhead_;
};

}  // namespace

const CalendarSystem& CalendarSystem::of(Calendar::Identifier identifier) {
  using enum Calendar::Identifier;
  // The systems outlive whatever still asks while the process ends.
  static const auto* const gregorianSystem = new GregorianSystem(0);
  static const auto* const buddhistSystem = new GregorianSystem(543);
  if (identifier == gregorian || identifier == iso8601) return *gregorianSystem;
  if (identifier == buddhist) return *buddhistSystem;
  return icuCalendarSystemOf(identifier);
}

}  // namespace tavrine::foundation
