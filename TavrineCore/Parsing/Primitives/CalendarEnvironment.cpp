#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"

#include <cstdint>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace tavrine {

namespace {

struct Day {
  std::int64_t day;
  std::int64_t month;
  std::int64_t year;

  [[nodiscard]] std::size_t hash() const { return hashOf(day, month, year); }
  friend bool operator==(const Day&, const Day&) = default;
};

}  // namespace

struct CalendarEnvironment::Holidays {
  std::vector<Holiday> list;
  /// A walk over workdays asks once a day, so the answer has to cost one probe.
  std::unordered_set<Day> days;

  explicit Holidays(std::vector<Holiday> holidays) : list(std::move(holidays)) {
    for (const Holiday& holiday : list) days.insert({holiday.day, holiday.month, holiday.year});
  }
};

CalendarEnvironment::CalendarEnvironment(Calendar calendar, std::vector<Holiday> holidays)
    : calendar_(std::move(calendar)),
      holidays_(holidays.empty() ? nullptr : std::make_shared<const Holidays>(std::move(holidays))) {}

const std::vector<Holiday>& CalendarEnvironment::holidays() const {
  static const std::vector<Holiday> none;
  return holidays_ != nullptr ? holidays_->list : none;
}

bool CalendarEnvironment::isHoliday(const DateComponents& components) const {
  if (holidays_ == nullptr || !components.day || !components.month || !components.year) return false;
  return holidays_->days.contains({*components.day, *components.month, *components.year});
}

std::size_t CalendarEnvironment::hash() const { return hashCombine(hashOf(calendar_), hashOfRange(holidays())); }

bool operator==(const CalendarEnvironment& left, const CalendarEnvironment& right) {
  if (left.calendar_ != right.calendar_) return false;
  return left.holidays_ == right.holidays_ || left.holidays() == right.holidays();
}

}  // namespace tavrine
