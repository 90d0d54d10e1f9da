#include "Foundation/WallClock.h"

#include <cmath>

namespace tavrine::foundation {

namespace {

/// The finest step in nanoseconds that a number of seconds of that size still tells.
std::int64_t nanosecondGrainOf(double seconds) {
  const double size = std::abs(seconds);
  if (size < 0x1p23) return 1;
  return size < 0x1p33 ? 1'000 : 1'000'000;
}

}  // namespace

Moment momentOf(Date date) {
  const double seconds = date.timeIntervalSince1970();
  constexpr std::int64_t first = kFirstDay * kSecondsPerDay;
  constexpr std::int64_t last = (kLastDay + 1) * kSecondsPerDay - 1;
  if (std::isnan(seconds)) return {};
  if (seconds < static_cast<double>(first)) return {first, 0};
  if (seconds > static_cast<double>(last)) return {last, 0};

  const double whole = std::floor(seconds);
  Moment moment{static_cast<std::int64_t>(whole), 0};
  const std::int64_t grain = nanosecondGrainOf(seconds);
  const auto steps = static_cast<std::int64_t>(std::llround((seconds - whole) * 1e9 / static_cast<double>(grain)));
  const std::int64_t nanoseconds = steps * grain;
  if (nanoseconds >= 1'000'000'000) {
    ++moment.seconds;
  } else {
    moment.nanoseconds = static_cast<std::int32_t>(nanoseconds);
  }
  return moment;
}

Date dateOf(Moment moment) {
  return Date(static_cast<double>(moment.seconds) + static_cast<double>(moment.nanoseconds) / 1e9);
}

WallTime wallTimeOf(std::int64_t seconds, const TimeZone& zone) {
  const std::int64_t wallSeconds = seconds + zone.periodAt(seconds).secondsFromGMT;
  const std::int64_t dayNumber = floorDivide(wallSeconds, kSecondsPerDay);
  return {dayNumber, wallSeconds - dayNumber * kSecondsPerDay};
}

WallTimeMoments momentsOf(std::int64_t wallSeconds, const TimeZone& zone) {
  // No clocks are more than a day away from GMT, so this period is the one of the time or an earlier one.
  ZonePeriod period = zone.periodAt(wallSeconds - kSecondsPerDay);
  constexpr int mostChangesInTwoDays = 4;
  for (int i = 0; i < mostChangesInTwoDays; ++i) {
    const std::int64_t moment = wallSeconds - period.secondsFromGMT;
    if (period.end - kSecondsPerDay > moment) return {moment, moment, std::nullopt, 0};

    const ZonePeriod next = zone.periodAt(period.end);
    const std::int64_t later = wallSeconds - next.secondsFromGMT;
    if (moment < period.end) return {moment, later >= next.start ? later : moment, std::nullopt, 0};
    if (later < next.start) {
      return {moment, moment, next.start, next.secondsFromGMT - period.secondsFromGMT};
    }
    period = next;
  }
  const std::int64_t moment = wallSeconds - period.secondsFromGMT;
  return {moment, moment, std::nullopt, 0};
}

std::int64_t startOfDayNumber(std::int64_t dayNumber, const TimeZone& zone) {
  const WallTimeMoments moments = momentsOf(dayNumber * kSecondsPerDay, zone);
  return moments.skippedAt.value_or(moments.first);
}

}  // namespace tavrine::foundation
