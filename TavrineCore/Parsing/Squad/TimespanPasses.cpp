// Amounts of time as durations on the calendar, and back: "3 weeks", "1:30 hours", "2 hours 5 min".

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>

#include "TavrineCore/Parsing/Primitives/CalendarComponentSet.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

using namespace foundation::literals;

/// Longer than any calendar, and far from where whole numbers end.
constexpr Decimal kLargestAmount = "1e15"_dec;

std::optional<UnitExpression> amountIn(const Token& token) {
  const auto* metadata = token.metadataAs<UnitExpressionTokenMetadata>();
  return metadata != nullptr ? std::optional(metadata->unitExpression()) : std::nullopt;
}

std::optional<std::int64_t> wholeOf(const Decimal& value) {
  if (value.isNaN() || value.magnitude() > kLargestAmount) return std::nullopt;
  return value.rounded(0, RoundingMode::plain).intValue();
}

// --- A single amount ------------------------------------------------------------------------------------------------

void wrapTimespan(TokenList& list, std::size_t first, std::size_t last, const DateComponents& components) {
  auto metadata = std::make_shared<const TimespanTokenMetadata>(Timespan{components, std::nullopt});
  list.replaceRun(first, last,
                  list.slice(first, last)
                      .embedInContainerToken(TokenType::timespan, TokenSubType::notSpecified, std::move(metadata)));
}

/// The number of the clock form that ends with the amount: the 1 of "1:30 hours".
std::optional<std::size_t> numberOnClockBefore(const TokenList& list, std::size_t amount) {
  const auto colon = list.indexBefore(amount, /*ignoreWhitespace=*/true);
  if (!colon || !list[*colon].is(TokenType::colon)) return std::nullopt;
  const auto number = list.indexBefore(*colon, /*ignoreWhitespace=*/true);
  return number && list[*number].is(TokenType::number) ? number : std::nullopt;
}

/// "1:30 hours" counts hours and minutes, "1:30 min" minutes and seconds.
std::optional<DateComponents> componentsOnClock(const Decimal& larger, const UnitExpression& smaller) {
  const auto whole = wholeOf(larger);
  const auto part = wholeOf(smaller.value);
  if (!whole || !part) return std::nullopt;
  DateComponents components;
  if (smaller.unit.identifier() == UnitIdentifier::hours) {
    components.hour = whole;
    components.minute = part;
  } else if (smaller.unit.identifier() == UnitIdentifier::minutes) {
    components.minute = whole;
    components.second = part;
  } else {
    return std::nullopt;
  }
  return components;
}

/// Gives the index of the first token that is used.
std::size_t wrapAmount(TokenList& list, std::size_t index) {
  const auto amount = amountIn(list[index]);
  if (!amount) return index;
  if (const auto number = numberOnClockBefore(list, index)) {
    const auto value = list[*number].ownDecimalValue();
    const auto components = value ? componentsOnClock(*value, *amount) : std::nullopt;
    if (!components) return index;
    wrapTimespan(list, *number, index, *components);
    return *number;
  }
  if (const auto timespan = timespanOf(*amount)) wrapTimespan(list, index, index, timespan->dateComponents);
  return index;
}

// --- Several amounts that are one -----------------------------------------------------------------------------------

/// False where the sum is beyond all calendars.
bool add(const DateComponents& added, DateComponents& sum) {
  for (const Calendar::Component component : orderedTavrineSupportedComponents) {
    const auto value = valueOf(added, component);
    if (!value) continue;
    const auto total = wholeOf(Decimal(valueOf(sum, component).value_or(0)) + Decimal(*value));
    if (!total) return false;
    setValueOf(sum, component, total);
  }
  return true;
}

/// What the parts of a compound come to. Frames are counted apart: they have no length of their own.
struct CompoundSum {
  DateComponents components;
  std::optional<std::int64_t> frames;
};

std::optional<CompoundSum> sumOf(const TokenList& parts) {
  CompoundSum sum;
  for (const Token& part : parts) {
    const auto amount = part.is(TokenType::unitExpression) ? amountIn(part) : std::nullopt;
    if (!amount) continue;
    if (amount->unit.identifier() == UnitIdentifier::frames) {
      sum.frames = wholeOf(amount->value);
      continue;
    }
    const auto timespan = timespanOf(*amount);
    if (!timespan || !add(timespan->dateComponents, sum.components)) return std::nullopt;
  }
  return sum;
}

/// "1 h 20 min 15 s 10 frames" is a time code.
std::optional<Frametime> frametimeOf(const CompoundSum& sum) {
  const auto& [hour, minute, second] = std::tie(sum.components.hour, sum.components.minute, sum.components.second);
  if (!sum.frames || !hour || !minute || !second) return std::nullopt;
  return Frametime{Decimal(Frametime::defaultFps), *hour, *minute, *second, *sum.frames};
}

void wrapCompound(TokenList& list, std::size_t index) {
  const auto* metadata = list[index].metadataAs<CompoundUnitExpressionTokenMetadata>();
  if (metadata == nullptr || !list[index].subtokens) return;
  if (metadata->primaryUnitMetadata.underlyingTCUnit.unitType() != UnitType::duration) return;
  const auto sum = sumOf(*list[index].subtokens);
  if (!sum) return;
  if (const auto frametime = frametimeOf(*sum)) {
    list.replaceAt(index, list.slice(index, index)
                              .embedInContainerToken(TokenType::frametime, TokenSubType::notSpecified,
                                                     std::make_shared<const FrametimeTokenMetadata>(*frametime)));
  } else {
    wrapTimespan(list, index, index, sum->components);
  }
}

// --- Back to amounts ------------------------------------------------------------------------------------------------

/// The amount that the duration was read from. None where several were, or where a clock form was: they add up to
/// something that is no single amount.
const Token* amountBehind(const Token& timespan) {
  if (!timespan.subtokens || timespan.subtokens->isEmpty()) return nullptr;
  const TokenList& subtokens = *timespan.subtokens;
  if (subtokens[0].is(TokenType::compoundUnitExpression)) return nullptr;
  return subtokens.firstTokenOfType(TokenType::colon) == nullptr ? &subtokens[0] : nullptr;
}

}  // namespace

void identifyTimespansIn(TokenList& list, const PassContext&) {
  if (!list.unitTypesCache().contains(UnitType::duration)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (list[i].is(TokenType::unitExpression) && isUnitOfType(list[i], UnitType::duration)) i = wrapAmount(list, i);
  }
}

void identifyTimespansInCompounds(TokenList& list, const PassContext&) {
  if (!list.unitTypesCache().contains(UnitType::duration)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (list[i].is(TokenType::compoundUnitExpression)) wrapCompound(list, i);
  }
}

void transformTimespansOutsideCalendarMathExpressionsBackIntoUnitExpressions(TokenList& list, const PassContext&) {
  list.applyTransformationToAllTokensOfType(TokenType::timespan, nullptr, /*reversed=*/true,
                                            [](const Token& timespan, const Token* parent) -> std::optional<Token> {
                                              if (parent != nullptr && parent->is(TokenType::wordFunction))
                                                return std::nullopt;
                                              const Token* amount = amountBehind(timespan);
                                              return amount != nullptr ? std::optional(*amount) : std::nullopt;
                                            });
}

}  // namespace tavrine::passes
