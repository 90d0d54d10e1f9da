#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/DateComponents.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Holiday.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// The calendar that travels with every date, and the holidays that workdays skip. Cheap to copy: the holidays are
/// shared.
struct CalendarEnvironment {
 public:
  explicit CalendarEnvironment(Calendar calendar, std::vector<Holiday> holidays = {});

  [[nodiscard]] const Calendar& calendar() const { return calendar_; }
  /// In the order in which they were given.
  [[nodiscard]] const std::vector<Holiday>& holidays() const;

  /// Whether one of the holidays has the day, month and year of the components.
  [[nodiscard]] bool isHoliday(const DateComponents& components) const;

  [[nodiscard]] std::size_t hash() const;
  friend bool operator==(const CalendarEnvironment& left, const CalendarEnvironment& right);

 private:
  struct Holidays;

  Calendar calendar_;
  /// Null where there are none, which is nearly always.
  std::shared_ptr<const Holidays> holidays_;
};

}  // namespace tavrine
