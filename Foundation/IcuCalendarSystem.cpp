#include "Foundation/IcuCalendarSystem.h"

#include <unicode/calendar.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "Foundation/CalendarSymbols.h"
#include "Foundation/CivilDay.h"

namespace tavrine::foundation {

namespace {

constexpr std::size_t kIdentifierCount = static_cast<std::size_t>(Calendar::Identifier::islamicUmmAlQura) + 1;

// Lunar calendars are computed month by month, and nobody dates by them outside of these years.
constexpr std::int64_t kFirstIcuDay = dayNumberOf({-4000, 1, 1});
constexpr std::int64_t kLastIcuDay = dayNumberOf({10'000, 12, 31});
constexpr std::int64_t kMostYears = 20'000;
constexpr std::int64_t kMostMonths = kMostYears * 13;

constexpr double kMillisecondsPerDay = 86'400'000;

/// A new year that ICU places a day off, since its moon is a few minutes early or late.
struct NewYearCorrection {
  std::int64_t firstDayInIcu;
  std::int64_t firstDay;
  std::int64_t lastDayOfFirstMonth;
};
constexpr std::array<NewYearCorrection, 2> kChineseCorrections = {{
    {dayNumberOf({2027, 2, 7}), dayNumberOf({2027, 2, 6}), dayNumberOf({2027, 3, 7})},
    {dayNumberOf({2030, 2, 2}), dayNumberOf({2030, 2, 3}), dayNumberOf({2030, 3, 3})},
}};

class IcuCalendarSystem final : public CalendarSystem {
 public:
  explicit IcuCalendarSystem(Calendar::Identifier identifier) : identifier_(identifier) {}

  [[nodiscard]] DayFields fieldsOf(std::int64_t dayNumber) const override {
    dayNumber = std::clamp(dayNumber, kFirstIcuDay, kLastIcuDay);
    if (identifier_ != Calendar::Identifier::chinese) return icuFieldsOf(dayNumber);
    for (const NewYearCorrection& correction : kChineseCorrections) {
      if (dayNumber >= correction.firstDay && dayNumber <= correction.lastDayOfFirstMonth) {
        DayFields fields = icuFieldsOf(std::max(dayNumber, correction.firstDayInIcu));
        fields.day = dayNumber - correction.firstDay + 1;
        return fields;
      }
      if (dayNumber == correction.firstDayInIcu) {
        DayFields fields = icuFieldsOf(dayNumber - 1);
        ++fields.day;
        return fields;
      }
    }
    return icuFieldsOf(dayNumber);
  }

  [[nodiscard]] std::optional<std::int64_t> firstDayOf(std::optional<std::int64_t> era, std::int64_t year,
                                                       std::int64_t month) const override {
    if (std::abs(year) > kMostYears || std::abs(month) > kMostMonths || era.value_or(0) > 1000) return std::nullopt;
    icu::Calendar* const calendar = calendarOfThread();
    if (calendar == nullptr) return std::nullopt;
    calendar->clear();
    if (era && *era >= 0) {
      calendar->set(UCAL_ERA, static_cast<std::int32_t>(*era));
      calendar->set(UCAL_YEAR, static_cast<std::int32_t>(year));
    } else {
      calendar->set(UCAL_EXTENDED_YEAR, static_cast<std::int32_t>(year));
    }
    calendar->set(UCAL_MONTH, 0);
    calendar->set(UCAL_DATE, 1);
    return firstDayMonthsLater(*calendar, month - 1);
  }

  [[nodiscard]] std::optional<std::int64_t> adding(std::int64_t years, std::int64_t months,
                                                   std::int64_t dayNumber) const override {
    if (std::abs(years) > kMostYears || std::abs(months) > kMostMonths) return std::nullopt;
    const DayFields fields = fieldsOf(dayNumber);
    std::optional<std::int64_t> first = dayNumber - fields.day + 1;
    if (years != 0) first = firstDayOf(std::nullopt, fields.extendedYear + years, fields.month);
    if (!first) return std::nullopt;
    if (months != 0) first = monthsLater(*first, months);
    if (!first) return std::nullopt;
    return *first + std::min(fields.day, daysInMonthOf(*first)) - 1;
  }

  [[nodiscard]] std::int64_t monthsInYearOf(std::int64_t dayNumber) const override {
    icu::Calendar* const calendar = calendarOfThread();
    if (calendar == nullptr) return 12;
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(static_cast<double>(std::clamp(dayNumber, kFirstIcuDay, kLastIcuDay)) * kMillisecondsPerDay,
                      status);
    const std::int64_t months = calendar->getActualMaximum(UCAL_MONTH, status) + 1;
    return U_SUCCESS(status) ? months : 12;
  }

  [[nodiscard]] std::int64_t daysInMonthOf(std::int64_t dayNumber) const override {
    const std::int64_t first = dayNumber - fieldsOf(dayNumber).day + 1;
    const auto next = monthsLater(first, 1);
    return next ? *next - first : 30;
  }

 private:
  /// One calendar a thread, always on GMT: making one takes longer than a whole line may.
  [[nodiscard]] icu::Calendar* calendarOfThread() const {
    thread_local std::array<std::unique_ptr<icu::Calendar>, kIdentifierCount> calendars;
    auto& calendar = calendars[static_cast<std::size_t>(identifier_)];
    if (calendar == nullptr) {
      UErrorCode status = U_ZERO_ERROR;
      const std::string locale = "en@calendar=" + std::string(unicodeNameOf(identifier_));
      calendar.reset(
          icu::Calendar::createInstance(icu::TimeZone::getGMT()->clone(), icu::Locale(locale.c_str()), status));
      if (U_FAILURE(status)) calendar = nullptr;
    }
    return calendar.get();
  }

  [[nodiscard]] DayFields icuFieldsOf(std::int64_t dayNumber) const {
    icu::Calendar* const calendar = calendarOfThread();
    if (calendar == nullptr) return {};
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(static_cast<double>(dayNumber) * kMillisecondsPerDay, status);
    return {calendar->get(UCAL_ERA, status), calendar->get(UCAL_YEAR, status),
            calendar->get(UCAL_EXTENDED_YEAR, status), calendar->get(UCAL_MONTH, status) + std::int64_t{1},
            calendar->get(UCAL_DATE, status)};
  }

  /// From the first day of a month.
  [[nodiscard]] std::optional<std::int64_t> monthsLater(std::int64_t firstDay, std::int64_t months) const {
    icu::Calendar* const calendar = calendarOfThread();
    if (calendar == nullptr) return std::nullopt;
    // Where ICU has another first day, the tenth day of the month is in the right one all the same.
    const std::int64_t icuFirst = firstDay + 9 - (icuFieldsOf(firstDay + 9).day - 1);
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(static_cast<double>(icuFirst) * kMillisecondsPerDay, status);
    return firstDayMonthsLater(*calendar, months);
  }

  [[nodiscard]] std::optional<std::int64_t> firstDayMonthsLater(icu::Calendar& calendar, std::int64_t months) const {
    UErrorCode status = U_ZERO_ERROR;
    if (months != 0) calendar.add(UCAL_MONTH, static_cast<std::int32_t>(months), status);
    const double day = calendar.getTime(status) / kMillisecondsPerDay;
    if (U_FAILURE(status) || day < static_cast<double>(kFirstIcuDay) || day > static_cast<double>(kLastIcuDay)) {
      return std::nullopt;
    }
    const auto dayNumber = static_cast<std::int64_t>(day);
    if (identifier_ == Calendar::Identifier::chinese) {
      for (const NewYearCorrection& correction : kChineseCorrections) {
        if (dayNumber == correction.firstDayInIcu) return correction.firstDay;
      }
    }
    return dayNumber;
  }

  Calendar::Identifier identifier_;
};

}  // namespace

const CalendarSystem& icuCalendarSystemOf(Calendar::Identifier identifier) {
  // The systems outlive whatever still asks while the process ends.
  static const auto* const systems = [] {
    auto* const made = new std::array<std::unique_ptr<const CalendarSystem>, kIdentifierCount>;
    for (std::size_t i = 0; i < kIdentifierCount; ++i) {
      (*made)[i] = std::make_unique<IcuCalendarSystem>(static_cast<Calendar::Identifier>(i));
    }
    return made;
  }();
  return *(*systems)[static_cast<std::size_t>(identifier)];
}

}  // namespace tavrine::foundation
