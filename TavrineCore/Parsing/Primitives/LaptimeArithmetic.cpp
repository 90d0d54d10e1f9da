#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"

#include <algorithm>

#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"

namespace tavrine {

namespace {

Decimal wholeOf(const Decimal& value) { return value.rounded(0, RoundingMode::plain); }

Decimal secondsIn(std::int64_t hour, std::int64_t minute) { return Decimal(hour) * 3600 + Decimal(minute) * 60; }

Laptime laptimeOfSeconds(const Decimal& seconds) {
  return laptimeFrom(dateComponentsIn(with(UnitIdentifier::seconds, seconds), false, laptimeCalendarComponets));
}

}  // namespace

Laptime laptimeFrom(DateComponents components) {
  if (components.minute.value_or(0) > 59 || components.second.value_or(0) > 59) {
    components = dateComponentsIn(with(UnitIdentifier::seconds, decimalTimeInterval(components)), false,
                                  laptimeCalendarComponets);
  }
  return {components.hour, components.minute.value_or(0), secondsWithNanoseconds(components).value_or(0)};
}

DateComponents dateComponentsOf(const Laptime& laptime) {
  return dateComponentsFrom(laptime.hour, laptime.minute, laptime.seconds);
}

Decimal totalSecondsOf(const Laptime& laptime) {
  return secondsIn(laptime.hour.value_or(0), laptime.minute) + laptime.seconds.value_or(0);
}

bool isNegative(const Laptime& laptime) { return totalSecondsOf(laptime).isSignMinus(); }

Laptime operator+(const Laptime& left, const Laptime& right) {
  return laptimeOfSeconds(totalSecondsOf(left) + totalSecondsOf(right));
}

Laptime operator-(const Laptime& left, const Laptime& right) {
  return laptimeOfSeconds(totalSecondsOf(left) - totalSecondsOf(right));
}

Laptime operator*(const Laptime& laptime, const Decimal& factor) {
  return laptimeOfSeconds(totalSecondsOf(laptime) * factor);
}

Laptime operator/(const Laptime& laptime, const Decimal& divisor) {
  return laptimeOfSeconds(totalSecondsOf(laptime) / divisor);
}

Decimal operator/(const Laptime& left, const Laptime& right) { return totalSecondsOf(left) / totalSecondsOf(right); }

Frametime frametimeValueAt(const Decimal& fps, const Laptime& laptime) {
  const Decimal seconds = laptime.seconds.value_or(0);
  const Decimal whole = seconds.rounded(0, RoundingMode::down);
  return {fps, laptime.hour.value_or(0), laptime.minute, whole.intValue(), wholeOf((seconds - whole) * fps).intValue()};
}

Frametime frametimeFrom(const Decimal& totalFrames, const Decimal& fps) {
  // No frames at all, and rates that no film has.
  if (totalFrames < 1 || fps.isNaN() || fps <= 0) return {fps, 0, 0, 0, 0};
  const Decimal seconds = (totalFrames / fps).rounded(0, RoundingMode::down);
  const Decimal frame = totalFrames - seconds * fps;
  const DateComponents components =
      dateComponentsIn(with(UnitIdentifier::seconds, seconds), false, frametimeCalendarComponets);
  return {fps, components.hour.value_or(0), components.minute.value_or(0), components.second.value_or(0),
          frame.intValue()};
}

Decimal totalFramesOf(const Frametime& frametime) {
  const Decimal seconds = secondsIn(frametime.hour, frametime.minute) + Decimal(frametime.second);
  return wholeOf(seconds * frametime.fps) + Decimal(frametime.frame);
}

Decimal totalSecondsOf(const Frametime& frametime) { return totalFramesOf(frametime) / frametime.fps; }

Decimal fpsFor(const std::vector<Frametime>& frameTimes) {
  const auto found = std::ranges::find_if(
      frameTimes, [](const Frametime& frametime) { return frametime.fps != Decimal(Frametime::defaultFps); });
  return found == frameTimes.end() ? Decimal(Frametime::defaultFps) : found->fps;
}

std::vector<Frametime> standardizedByFPS(const std::vector<Frametime>& frameTimes) {
  const Decimal fps = fpsFor(frameTimes);
  std::vector<Frametime> result = frameTimes;
  for (Frametime& frametime : result) frametime.fps = fps;
  return result;
}

Frametime operator+(const Frametime& left, const Frametime& right) {
  const auto both = standardizedByFPS({left, right});
  return frametimeFrom(totalFramesOf(both[0]) + totalFramesOf(both[1]), both[0].fps);
}

Frametime operator-(const Frametime& left, const Frametime& right) {
  const auto both = standardizedByFPS({left, right});
  return frametimeFrom(totalFramesOf(both[0]) - totalFramesOf(both[1]), both[0].fps);
}

Frametime operator*(const Frametime& frametime, const Decimal& factor) {
  return frametimeFrom(wholeOf(totalFramesOf(frametime) * factor), frametime.fps);
}

Frametime operator/(const Frametime& frametime, const Decimal& divisor) {
  return frametimeFrom(wholeOf(totalFramesOf(frametime) / divisor), frametime.fps);
}

Decimal operator/(const Frametime& left, const Frametime& right) {
  const auto both = standardizedByFPS({left, right});
  return totalFramesOf(both[0]) / totalFramesOf(both[1]);
}

}  // namespace tavrine
