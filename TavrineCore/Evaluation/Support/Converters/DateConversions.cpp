// "as date", "in Tokyo", "as timestamp", "as dd.MM.yyyy": dates in other forms.

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/Workdays.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::conversions {

namespace {

CalendarEnvironment currentEnvironment() { return CalendarEnvironment(Calendar::current()); }

CalendarEnvironment environmentOf(const Token& token) {
  const auto* metadata = token.metadataAs<DatestampTokenMetadata>();
  return metadata != nullptr ? metadata->environment : currentEnvironment();
}

Token timestampToken(const Decimal& seconds) { return TokenFactory::timestampWith(seconds, currentEnvironment()); }

/// The date that lies the duration ahead of now.
Token fromNow(const Timespan& timespan) {
  const CalendarEnvironment environment = currentEnvironment();
  const auto workdays = workdaysOf(timespan);
  const auto date = workdays ? std::optional(dateByAddingWorkdays(environment, *workdays, Date::now()))
                             : environment.calendar().dateByAdding(timespan.dateComponents, Date::now());
  if (!date) return Token();
  return TokenFactory::datestampWith({*date, appropriateDatestampType(timespan), environment.calendar().timeZone()},
                                     environment);
}

std::optional<Datestamp> datestampOf(const Token& operand) {
  if (!operand.is(TokenType::unixTimestamp)) return operand.datestampValue();
  return dateOfUnixTime(operand.decimalValue()).datestampValue();
}

/// The text behind "as", the names of variables replaced by what they hold.
std::string templateOf(const Token& converter) {
  if (!converter.subtokens) return {};
  std::vector<Token> parts;
  for (const Token& part : *converter.subtokens) {
    if (part.is(TokenType::converterSymbol)) continue;
    const std::optional<Token> value = part.isVariable() ? part.expandedVariable() : std::nullopt;
    parts.push_back(value ? *value : part);
  }
  const TokenListRef list = TokenList::frozen(std::move(parts));
  return std::string(foundation::trimmed(list->rebuiltExpression()));
}

/// The same wall clock in another zone.
std::optional<Date> reread(const Token& operand, const Datestamp& datestamp, const TimeZone& zone) {
  const Calendar calendar = environmentOf(operand).calendar();
  const Calendar::ComponentSet wallClock{Calendar::Component::era,    Calendar::Component::year,
                                         Calendar::Component::month,  Calendar::Component::day,
                                         Calendar::Component::hour,   Calendar::Component::minute,
                                         Calendar::Component::second, Calendar::Component::nanosecond};
  const DateComponents components = calendar.in(datestamp.timezone).dateComponents(wallClock, datestamp.date);
  return calendar.in(zone).dateFrom(components);
}

/// "3pm to Tokyo" asks what the clocks in Tokyo show then; "3pm in Tokyo" means the clocks there.
bool keepsInstant(const Datestamp& datestamp, const Token& converter) {
  if (datestamp.hasExplicitTimeZone || datestamp.type == DatestampType::now) return true;
  const Token* symbol = converterOperandOf(converter, TokenType::converterSymbol);
  return symbol != nullptr && symbol->subType == TokenSubType::converterSymbolTo;
}

}  // namespace

Token dateOfUnixTime(const Decimal& seconds) {
  const auto datestamp = datestampOfUnixTime(seconds);
  return datestamp ? TokenFactory::datestampWith(*datestamp, currentEnvironment())
                   : errorToken(EvaluationError::Infinity);
}

Token intoTimestamp(const ConverterOperands& operands) {
  const Token& operand = operands.operand;
  switch (operand.type) {
    case TokenType::number:
      return timestampToken(operand.decimalValue());
    case TokenType::unixTimestamp:
      return operand;
    case TokenType::datestamp:
    case TokenType::iso8601: {
      const auto datestamp = operand.datestampValue();
      return datestamp ? timestampToken(Decimal::fromDouble(datestamp->date.timeIntervalSince1970())) : Token();
    }
    case TokenType::unitExpression: {
      Token seconds = intoUnit(operand, unitOf(UnitIdentifier::seconds));
      return seconds.errorValue() ? seconds : timestampToken(seconds.decimalValue());
    }
    default:
      return Token();
  }
}

Token intoDate(const ConverterOperands& operands) {
  const Token& operand = operands.operand;
  if (operand.is(TokenType::number) || operand.is(TokenType::unixTimestamp)) {
    return dateOfUnixTime(operand.decimalValue());
  }
  if (operand.is(TokenType::iso8601)) {
    const auto datestamp = operand.datestampValue();
    return datestamp ? TokenFactory::datestampWith(*datestamp, environmentOf(operand)) : Token();
  }
  const auto timespan = operand.timespanValue();
  return timespan ? fromNow(*timespan) : Token();
}

Token intoIso8601(const ConverterOperands& operands) {
  const auto datestamp = datestampOf(operands.operand);
  return datestamp ? TokenFactory::iso8601With(*datestamp) : Token();
}

Token intoDateFormatTemplate(const ConverterOperands& operands) {
  auto datestamp = datestampOf(operands.operand);
  std::string dateFormatTemplate = templateOf(operands.converter);
  if (!datestamp || dateFormatTemplate.empty()) return Token();
  datestamp->dateFormatTemplate = std::move(dateFormatTemplate);
  return TokenFactory::datestampWith(*datestamp, environmentOf(operands.operand));
}

Token intoTimezone(const ConverterOperands& operands) {
  const Token* target = converterOperandOf(operands.converter, TokenType::timezone);
  const auto zone = target != nullptr ? target->timeZoneValue() : std::nullopt;
  auto datestamp = operands.operand.datestampValue();
  if (!zone || !datestamp) return Token();
  if (!keepsInstant(*datestamp, operands.converter)) {
    const auto date = reread(operands.operand, *datestamp, *zone);
    if (!date) return Token();
    datestamp->date = *date;
  } else if (foundation::lowercased(target->stringValue) == "utc") {
    datestamp->type = DatestampType::utcTime;
  }
  datestamp->timezone = *zone;
  datestamp->hasExplicitTimeZone = true;
  return TokenFactory::datestampWith(*datestamp, environmentOf(operands.operand));
}

}  // namespace tavrine::conversions
