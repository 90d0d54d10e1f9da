#include "TavrineCore/ResultFormatting/TimespanFormatter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "Foundation/CivilDay.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"
#include "TavrineCore/ResultFormatting/UnitResultFormatters.h"

namespace tavrine {

using Case = EvaluationResult::Case;
using Component = Calendar::Component;

namespace {

using namespace foundation::literals;

constexpr Decimal kSecondsPerNanosecond = "1e-9"_dec;

// A line that names such a pair has had its amounts split as it wants them.
constexpr TokenSubTypeSet kConvertersThatSettleComponents{
    TokenSubType::monthsAndDaysConverter, TokenSubType::weeksAndDaysConverter, TokenSubType::daysAndHoursConverter,
    TokenSubType::hoursAndMinutesConverter};

struct Overflow {
  Component component;
  std::int64_t limit;
  Component next;
};

// From the smallest, so that a carry goes on upward. Months have no fixed number of weeks, so weeks are the end.
constexpr auto kOverflows = std::to_array<Overflow>({
    {Component::second, 60, Component::minute},
    {Component::minute, 60, Component::hour},
    {Component::hour, 24, Component::day},
    {Component::day, 7, Component::weekOfYear},
});

std::size_t componentCount(const DateComponents& components) {
  return static_cast<std::size_t>(
      std::ranges::count_if(orderedTavrineSupportedComponents,
                            [&components](Component component) { return valueOf(components, component).has_value(); }));
}

bool isNegative(const DateComponents& components) {
  bool hasNegative = false;
  for (const Component component : orderedTavrineSupportedComponents) {
    const std::int64_t value = valueOf(components, component).value_or(0);
    if (value > 0) return false;
    hasNegative = hasNegative || value < 0;
  }
  return hasNegative;
}

void add(std::int64_t amount, Component component, DateComponents& components) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(valueOf(components, component).value_or(0), amount, &sum)) {
    sum = amount < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
  }
  setValueOf(components, component, sum);
}

/// Whether a component above one of `kOverflows`, up to weeks, has something to lend.
bool canBorrow(const DateComponents& components, std::size_t overflow) {
  return std::any_of(kOverflows.begin() + static_cast<std::ptrdiff_t>(overflow), kOverflows.end(),
                     [&components](const Overflow& row) { return valueOf(components, row.next).value_or(0) > 0; });
}

/// 90 minutes become 1 hour and 30 minutes; 1 hour and -20 minutes become 40 minutes.
DateComponents withResolvedOverflows(DateComponents components) {
  for (std::size_t i = 0; i < kOverflows.size(); ++i) {
    const auto [component, limit, next] = kOverflows[i];
    const std::optional<std::int64_t> value = valueOf(components, component);
    if (!value) continue;
    if (*value < limit && (*value >= 0 || !canBorrow(components, i))) continue;
    setValueOf(components, component, foundation::floorModulo(*value, limit));
    add(foundation::floorDivide(*value, limit), next, components);
  }
  return components;
}

/// The amount of one component as it is shown; nothing where it isn't.
std::optional<UnitExpression> shownAmount(const DateComponents& components, Component component, bool isNegative) {
  const std::int64_t value = valueOf(components, component).value_or(0);
  const Decimal nanoseconds = Decimal(components.nanosecond.value_or(0)) * kSecondsPerNanosecond;
  if (component == Component::nanosecond) {
    // Beside seconds they are part of those.
    const bool isShown = isNegative ? components.second == 0 : components.second.value_or(0) == 0;
    if (!isShown) return std::nullopt;
    return UnitExpression{nanoseconds, unitOf(UnitIdentifier::seconds)};
  }
  const std::optional<UnitIdentifier> unit = unitIdentifierFor(component);
  if (!unit) return std::nullopt;
  Decimal amount(value);
  if (component == Component::second) amount += nanoseconds;
  return UnitExpression{amount, unitOf(*unit)};
}

std::string joined(const DateComponents& components, const ResultFormatterContext& context, bool isNegative) {
  const bool showsZero = !isNegative && componentCount(components) <= 1;
  std::string text;
  for (const Component component : orderedTavrineSupportedComponents) {
    const std::optional<std::int64_t> value = valueOf(components, component);
    if (!value || (*value == 0 && !showsZero)) continue;
    std::optional<UnitExpression> amount = shownAmount(components, component, isNegative);
    if (!amount) continue;
    if (isNegative) amount->value = amount->value.magnitude();
    const auto shown = UnitExpressionResultFormatter::formatted(*amount, context);
    if (!shown) continue;
    if (!text.empty()) text += ' ';
    text += *shown;
  }
  return text;
}

}  // namespace

std::string TimespanFormatter::format(const Timespan& timespan, const ResultFormatterContext& context) {
  const DateComponents& components = timespan.dateComponents;
  if (isNegative(components)) {
    std::string text = joined(components, context, true);
    if (!text.empty()) text.insert(0, 1, '-');
    return text;
  }
  const TokenList* line = context.originalTokenList.get();
  const bool isSettled = line != nullptr && line->includesConvertersOfSubtype(kConvertersThatSettleComponents);
  return joined(isSettled ? components : withResolvedOverflows(components), context, false);
}

std::optional<std::string> TimespanResultFormatter::formattedResult(const EvaluationResult& result,
                                                                    const ResultFormatterContext& context) {
  const Timespan* timespan = result.as<Case::timespan>();
  if (timespan == nullptr) return std::nullopt;
  return TimespanFormatter::format(*timespan, context);
}

std::optional<std::string> DatespanResultFormatter::formattedResult(const EvaluationResult& result,
                                                                    const ResultFormatterContext& context) {
  const Datespan* datespan = result.as<Case::datespan>();
  if (datespan == nullptr) return std::nullopt;
  const std::optional<Timespan> timespan = timespanIn(context.calendar, *datespan);
  if (!timespan) return std::nullopt;
  return TimespanFormatter::format(*timespan, context);
}

}  // namespace tavrine
