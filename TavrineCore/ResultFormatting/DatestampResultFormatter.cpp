#include "TavrineCore/ResultFormatting/DatestampResultFormatter.h"

#include <array>
#include <string_view>

#include "Foundation/DateFormatter.h"
#include "Foundation/ISO8601DateFormatter.h"
#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/ISO8601.h"
#include "TavrineCore/Parsing/Primitives/Timestamp.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {

using Case = EvaluationResult::Case;
using Component = Calendar::Component;
using Style = DateFormatter::Style;

namespace {

// What a line that is all about today can do without: it shows "3:00 PM". Texts of other languages stay whole.
constexpr auto kTodayPrefixesToRemove = std::to_array<std::string_view>(
    {"Today at ", "Сегодня в\u00A0", "Heute um ", "Сегодня, ", "hoy, ", "今天 ", "Today, "});

constexpr std::string_view kDayAndMonth = "d MMMM";

/// The pattern for dates of this kind, if they have one of their own.
std::optional<std::string_view> dateFormatFor(const Datestamp& datestamp) {
  using enum DatestampType;
  const auto isInThis = [&datestamp](Component component) {
    return Calendar::current().isDateEqualTo(datestamp.date, Date::now(), component);
  };
  switch (datestamp.type) {
    case utcTime:
      if (isInTodayIn(datestamp.timezone, datestamp.date)) return "HH:mm";
      return std::nullopt;
    case nakedMonth:
    case nextMonth:
    case lastMonth:
    case thisMonth:
      return isInThis(Component::year) ? "MMMM" : "MMMM yyyy";
    case monthAndYear:
      return "MMMM yyyy";
    case nakedYear:
    case nextYear:
    case lastYear:
    case thisYear:
      return "yyyy";
    case dayMonthYearWithClockTimeDownToSeconds:
      return "d MMMM yyyy h:mm:ss a";
    case dayMonthYearWithClockTimeDownToSubSeconds:
      return "d MMMM yyyy HH:mm:ss.SSS";
    case dayMonthYearAndWeekday:
      if (!isInThis(Component::year)) return "EEEE d MMMM yyyy";
      return isInThis(Component::weekOfYear) ? "EEEE" : "EEEE d MMMM";
    case weekDay:
      return "EEEE";
    case weekdayWithClockTime:
      if (isInThis(Component::weekOfYear)) return "EEEE h:mm a";
      return std::nullopt;
    case clockTime:
    case nakedDayOfMonth:
    case dayAndMonth:
    case dayMonthYear:
    case dayMonthYearWithClockTimeDownToMinutes:
    case relativeWeekday:
    case now:
    case today:
    case tomorrow:
    case yesterday:
    case nextWeek:
    case lastWeek:
    case thisWeek:
    case quarter:
    case unixTimestamp:
    case iso8601:
    case specialDay:
    case unspecified:
      return std::nullopt;
  }
  return std::nullopt;
}

/// Whether the line names a date, at any depth, that fails the test. A result without a line names none.
template <class Test>
bool namesDateThatIsNot(const TokenList* line, Test passes) {
  if (line == nullptr || !line->typesEverPresentAtAnyDepth().contains(TokenType::datestamp)) return false;
  bool isFound = false;
  line->enumerateAllTokensOfType(TokenType::datestamp, /*reversed=*/false,
                                 [&](const Token& token, const TokenList&, const Token*, bool& stop) {
                                   const auto* metadata = token.metadataAs<DatestampTokenMetadata>();
                                   isFound = metadata != nullptr && !passes(metadata->datestamp.date);
                                   stop = isFound;
                                 });
  return isFound;
}

bool nonTodayDateWasPresent(const TokenList* line) {
  const Calendar calendar = Calendar::current();
  return namesDateThatIsNot(line, [&calendar](Date date) { return calendar.isDateInToday(date); });
}

/// Whether the date and all that the line names lie in the year of the clock.
bool isAllInThisYear(Date date, const TokenList* line) {
  const Calendar calendar = Calendar::current();
  const auto isInThisYear = [&calendar, now = Date::now()](Date moment) {
    return calendar.isDateEqualTo(moment, now, Component::year);
  };
  return isInThisYear(date) && !namesDateThatIsNot(line, isInThisYear);
}

}  // namespace

std::optional<std::string> DatestampResultFormatter::formattedResult(const EvaluationResult& result,
                                                                     const ResultFormatterContext& context) {
  const Datestamp* datestamp = result.as<Case::date>();
  if (datestamp == nullptr) return std::nullopt;
  if (auto text = userProvidedTemplateFormattedDate(*datestamp, context)) return text;
  if (auto text = modernFormattedResult(*datestamp, context)) return text;

  std::string text = localeFormattedDate(*datestamp, context);
  if (nonTodayDateWasPresent(context.originalTokenList.get())) return text;
  for (const std::string_view prefix : kTodayPrefixesToRemove) {
    if (text.starts_with(prefix)) text.erase(0, prefix.size());
  }
  return text;
}

std::optional<std::string> DatestampResultFormatter::userProvidedTemplateFormattedDate(
    const Datestamp& datestamp, const ResultFormatterContext& context) {
  if (!datestamp.dateFormatTemplate) return std::nullopt;
  DateFormatter formatter(context.locale, datestamp.timezone);
  formatter.setLocalizedDateFormatFromTemplate(*datestamp.dateFormatTemplate);
  std::string text = formatter.string(datestamp.date);
  if (text.empty()) return std::nullopt;  // a template that no date can be written by
  return text;
}

std::optional<std::string> DatestampResultFormatter::modernFormattedResult(const Datestamp& datestamp,
                                                                           const ResultFormatterContext& context) {
  DateFormatter formatter(context.locale, datestamp.timezone);
  if (const auto format = dateFormatFor(datestamp)) {
    formatter.dateFormat = *format;
  } else if (datestamp.type == DatestampType::unixTimestamp) {
    formatter.dateStyle = Style::long_;
    formatter.timeStyle = Style::full;
  } else {
    return std::nullopt;
  }
  return formatter.string(datestamp.date);
}

std::string DatestampResultFormatter::localeFormattedDate(const Datestamp& datestamp,
                                                          const ResultFormatterContext& context) {
  const bool hasTime = calendarComponentsRepresentedBy(datestamp.type).contains(Component::hour);
  DateFormatter formatter(context.locale,
                          datestamp.hasExplicitTimeZone ? datestamp.timezone : context.calendar.timeZone());
  formatter.dateStyle = Style::long_;
  formatter.timeStyle = hasTime ? Style::short_ : Style::none;
  if (hasTime && datestamp.hasExplicitTimeZone) {
    if (isInTodayIn(datestamp.timezone, datestamp.date)) formatter.dateStyle = Style::none;
    return formatter.string(datestamp.date);
  }
  formatter.doesRelativeDateFormatting = true;
  if (!hasTime && isAllInThisYear(datestamp.date, context.originalTokenList.get())) {
    formatter.dateFormat = kDayAndMonth;
  }
  return formatter.string(datestamp.date);
}

std::optional<std::string> iso8601ResultFormatter::formattedResult(const EvaluationResult& result,
                                                                   const ResultFormatterContext&) {
  const iso8601* moment = result.as<Case::iso8601>();
  if (moment == nullptr) return std::nullopt;
  return ISO8601DateFormatter(moment->datestamp.timezone).string(moment->datestamp.date);
}

std::optional<std::string> TimestampResultFormatter::formattedResult(const EvaluationResult& result,
                                                                     const ResultFormatterContext& context) {
  const Timestamp* timestamp = result.as<Case::timestamp>();
  if (timestamp == nullptr || timestamp->decimalValue.isNaN()) return std::nullopt;
  NumberFormatter formatter(numberSymbolsFor(context.locale));
  formatter.numberStyle = NumberStyle::none;
  return formatter.string(timestamp->decimalValue);
}

}  // namespace tavrine
