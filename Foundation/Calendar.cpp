#include "Foundation/Calendar.h"

#include <algorithm>
#include <array>

#include "Foundation/Environment.h"
#include "Foundation/Hashing.h"

namespace tavrine::foundation {

namespace {

constexpr auto kIdentifierNames = std::to_array<std::string_view>({
    "gregorian",
    "buddhist",
    "chinese",
    "coptic",
    "ethiopicAmeteMihret",
    "ethiopicAmeteAlem",
    "hebrew",
    "iso8601",
    "indian",
    "islamic",
    "islamicCivil",
    "japanese",
    "persian",
    "republicOfChina",
    "islamicTabular",
    "islamicUmmAlQura",
});
static_assert(kIdentifierNames.size() == static_cast<std::size_t>(Calendar::Identifier::islamicUmmAlQura) + 1);

constexpr auto kComponentNames = std::to_array<std::string_view>({
    "era",
    "year",
    "month",
    "day",
    "hour",
    "minute",
    "second",
    "weekday",
    "weekdayOrdinal",
    "quarter",
    "weekOfMonth",
    "weekOfYear",
    "yearForWeekOfYear",
    "nanosecond",
    "calendar",
    "timeZone",
});
static_assert(kComponentNames.size() == static_cast<std::size_t>(Calendar::Component::timeZone) + 1);

}  // namespace

Calendar::Calendar(Identifier identifier) : Calendar(identifier, Locale::current(), TimeZone::current()) {}

Calendar Calendar::current() {
  const Environment environment = Environment::current();
  return {environment.calendarIdentifier(), environment.locale(), TimeZone(environment.timeZoneIdentifier())};
}

std::string_view toString(Calendar::Identifier identifier) noexcept {
  return kIdentifierNames[static_cast<std::size_t>(identifier)];
}

std::optional<Calendar::Identifier> calendarIdentifierFrom(std::string_view name) noexcept {
  const auto found = std::ranges::find(kIdentifierNames, name);
  if (found == kIdentifierNames.end()) return std::nullopt;
  return static_cast<Calendar::Identifier>(found - kIdentifierNames.begin());
}

std::string_view toString(Calendar::Component component) noexcept {
  return kComponentNames[static_cast<std::size_t>(component)];
}

}  // namespace tavrine::foundation

std::size_t std::hash<tavrine::foundation::Calendar>::operator()(
    const tavrine::foundation::Calendar& calendar) const noexcept {
  return tavrine::foundation::hashOf(static_cast<std::size_t>(calendar.identifier()), calendar.locale(),
                                     calendar.timeZone());
}
