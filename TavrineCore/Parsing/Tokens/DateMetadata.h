#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "Foundation/Date.h"
#include "Foundation/DateComponents.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/DateWord.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/SpecialDay.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/Timestamp.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"

namespace tavrine {

struct Place;

/// "5 March", "today".
struct DatestampTokenMetadata final : TokenMetadataOf<TokenMetadataKind::datestamp> {
  DatestampTokenMetadata(Datestamp stamp, Date created, CalendarEnvironment calendarEnvironment,
                         std::shared_ptr<const Place> where = nullptr)
      : datestamp(std::move(stamp)),
        creation_stamp(created),
        environment(std::move(calendarEnvironment)),
        place(std::move(where)) {}
  Datestamp datestamp;
  /// The "now" that relative dates count from.
  Date creation_stamp;
  CalendarEnvironment environment;
  /// The place that the words name beside the day: "tomorrow in Paris". Null where they name none.
  std::shared_ptr<const Place> place;
};

/// "Q1 2024", "last summer".
struct DatespanTokenMetadata final : TokenMetadataOf<TokenMetadataKind::datespan> {
  DatespanTokenMetadata(Datespan span, std::optional<CalendarEnvironment> environment, Date created)
      : datespan(std::move(span)), calendarEnvironment(std::move(environment)), creation_stamp(created) {}
  Datespan datespan;
  std::optional<CalendarEnvironment> calendarEnvironment;
  Date creation_stamp;
};

/// A number that is read as seconds since 1970.
struct TimestampTokenMetadata final : TokenMetadataOf<TokenMetadataKind::timestamp> {
  TimestampTokenMetadata(Timestamp stamp, CalendarEnvironment calendarEnvironment)
      : timestamp(stamp), environment(std::move(calendarEnvironment)) {}
  Timestamp timestamp;
  CalendarEnvironment environment;
};

/// "3 weeks 2 days".
struct TimespanTokenMetadata final : TokenMetadataOf<TokenMetadataKind::timespan> {
  explicit TimespanTokenMetadata(Timespan span) : timespan(std::move(span)) {}
  Timespan timespan;
};

/// "1:20:35.5".
struct LaptimeTokenMetadata final : TokenMetadataOf<TokenMetadataKind::laptime> {
  explicit LaptimeTokenMetadata(Laptime time) : laptime(std::move(time)) {}
  Laptime laptime;
};

/// "01:02:03:12 @ 24 fps".
struct FrametimeTokenMetadata final : TokenMetadataOf<TokenMetadataKind::frametime> {
  explicit FrametimeTokenMetadata(Frametime time) : frametime(std::move(time)) {}
  Frametime frametime;
};

/// The parts of a date, before it is known whether they make one.
struct DateComponentsTokenMetadata final : TokenMetadataOf<TokenMetadataKind::dateComponents> {
  DateComponentsTokenMetadata(DateComponents components, Datestamp::DatestampType datestampType, bool ambiguous = false,
                              std::optional<SpecialDay::SpecialDayType> specialDay = std::nullopt)
      : dateComponents(std::move(components)),
        type(datestampType),
        isAmbiguous(ambiguous),
        representingSpecialDay(specialDay) {}
  DateComponents dateComponents;
  Datestamp::DatestampType type;
  bool isAmbiguous;
  std::optional<SpecialDay::SpecialDayType> representingSpecialDay;
};

/// "March", "Tuesday", "pm".
struct DateWordTokenMetadata final : TokenMetadataOf<TokenMetadataKind::dateWord> {
  explicit DateWordTokenMetadata(DateWord word) : dateWord(std::move(word)) {}
  DateWord dateWord;
};

/// "christmas".
struct SpecialDayTokenMetadata final : TokenMetadataOf<TokenMetadataKind::specialDay> {
  explicit SpecialDayTokenMetadata(SpecialDay::SpecialDayType type) : specialDayType(type) {}
  SpecialDay::SpecialDayType specialDayType;
};

}  // namespace tavrine
