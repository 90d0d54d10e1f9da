#include "Tests/Evaluation/DateTokens.h"

#include <array>
#include <cstdio>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/ISO8601DateFormatter.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "Tests/Evaluation/UnitTokens.h"

namespace tavrine::testing {

namespace {

using Component = Calendar::Component;

struct Symbol {
  std::string_view letters;
  Component component;
};
constexpr auto kSymbols = std::to_array<Symbol>({
    {"y", Component::year},
    {"mo", Component::month},
    {"w", Component::weekOfYear},
    {"d", Component::day},
    {"wd", Component::weekday},
    {"h", Component::hour},
    {"m", Component::minute},
    {"s", Component::second},
    {"ns", Component::nanosecond},
});

[[noreturn]] void reject(const std::string& text) { throw std::invalid_argument("no value of time: " + text); }

Date dateIn(const std::string& text, const TimeZone& zone) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%dT%d:%d:%d", &year, &month, &day, &hour, &minute, &second) < 3) reject(text);
  const auto date = Calendar::current().in(zone).dateFrom(
      {.year = year, .month = month, .day = day, .hour = hour, .minute = minute, .second = second});
  return date ? *date : throw std::invalid_argument(text);
}

Datestamp datestampIn(const std::vector<std::string>& words) {
  const bool isInZone = words.size() > 3;
  const TimeZone zone = isInZone ? TimeZone(words[3]) : TimeZone::current();
  Datestamp datestamp{dateIn(words.at(1), zone), DatestampType::dayMonthYear, zone, isInZone};
  for (std::size_t i = 0; words.size() > 2 && i < kDatestampTypeCount; ++i) {
    if (toString(static_cast<DatestampType>(i)) == words[2]) datestamp.type = static_cast<DatestampType>(i);
  }
  return datestamp;
}

Timespan timespanIn(const std::vector<std::string>& words) {
  DateComponents components;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const std::size_t end = words[i].find_first_not_of("-0123456789");
    for (const Symbol& symbol : kSymbols) {
      if (symbol.letters == words[i].substr(end)) {
        setValueOf(components, symbol.component, std::stoll(words[i].substr(0, end)));
      }
    }
  }
  return {components, std::nullopt};
}

Laptime laptimeIn(const std::string& text) {
  const std::size_t first = text.find(':');
  const std::size_t second = text.find(':', first + 1);
  if (second == std::string::npos) return {std::nullopt, std::stoll(text), Decimal::parse(text.substr(first + 1))};
  return {std::stoll(text), std::stoll(text.substr(first + 1)), Decimal::parse(text.substr(second + 1))};
}

Frametime frametimeIn(const std::string& text) {
  int hour = 0, minute = 0, second = 0, frame = 0, fps = Frametime::defaultFps;
  if (std::sscanf(text.c_str(), "%d:%d:%d:%d@%d", &hour, &minute, &second, &frame, &fps) < 4) reject(text);
  return {Decimal(fps), hour, minute, second, frame};
}

std::string told(const Datestamp& datestamp) {
  std::string text = ISO8601DateFormatter(datestamp.timezone).string(datestamp.date);
  text.resize(text.find('T') + 6);
  if (text.ends_with("T00:00")) text.resize(text.size() - 6);
  text += ' ' + std::string(toString(datestamp.type));
  return datestamp.hasExplicitTimeZone ? text + ' ' + datestamp.timezone.identifier() : text;
}

std::string told(const Timespan& timespan) {
  std::string text = "span";
  for (const Symbol& symbol : kSymbols) {
    const auto value = valueOf(timespan.dateComponents, symbol.component).value_or(0);
    if (value != 0) text += ' ' + std::to_string(value) + std::string(symbol.letters);
  }
  return text;
}

std::string padded(std::int64_t value) { return (value < 10 ? "0" : "") + std::to_string(value); }

std::string told(const Laptime& laptime) {
  const std::string hour = laptime.hour ? std::to_string(*laptime.hour) + ':' : "";
  const Decimal seconds = laptime.seconds.value_or(0);
  return "lap " + hour + padded(laptime.minute) + (seconds < 10 ? ":0" : ":") + seconds.description();
}

std::string told(const Frametime& time) {
  return "code " + std::to_string(time.hour) + ':' + padded(time.minute) + ':' + padded(time.second) + ':' +
         padded(time.frame) + '@' + time.fps.description();
}

}  // namespace

Token timeToken(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  const CalendarEnvironment environment(Calendar::current());
  if (words[0] == "date") return TokenFactory::datestampWith(datestampIn(words), environment);
  if (words[0] == "iso") return TokenFactory::iso8601With(datestampIn({words[0], words.at(1), "iso8601"}));
  if (words[0] == "span") return TokenFactory::timespanWith(timespanIn(words));
  if (words[0] == "lap") return TokenFactory::laptimeWith(laptimeIn(words.at(1)));
  if (words[0] == "code") return TokenFactory::frametimeWith(frametimeIn(words.at(1)));
  if (words[0] == "stamp") return TokenFactory::timestampWith(*Decimal::parse(words.at(1)), environment);
  if (words[0] != "dates" && words[0] != "between") return valueToken(text);
  const Datespan span{dateIn(words.at(1), TimeZone::current()), dateIn(words.at(2), TimeZone::current())};
  if (words[0] == "dates") return TokenFactory::datespanWith(span);
  return TokenFactory::timespanWith(*timespanIn(Calendar::current(), span));
}

std::string describeTime(const Token& token) {
  switch (token.type) {
    case TokenType::datestamp:
      return "date " + told(*token.datestampValue());
    case TokenType::iso8601:
      return "iso " + told(*token.datestampValue());
    case TokenType::timespan:
      return told(*token.timespanValue());
    case TokenType::laptime:
      return told(*token.laptimeValue());
    case TokenType::frametime:
      return told(*token.frametimeValue());
    case TokenType::unixTimestamp:
      return "stamp " + token.decimalValue().description();
    case TokenType::number:
      if (!token.errorValue()) return token.decimalValue().description();
      return describeValue(token);
    default:
      return describeValue(token);
  }
}

}  // namespace tavrine::testing
