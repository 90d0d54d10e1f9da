#include "TavrineCore/Evaluation/TokenListForm.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/WordFunctionEvaluation.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

namespace {

using Form = TokenListForm;
using Found = std::optional<Form::Case>;
using Tokens = std::span<const Token>;
using Direction = Calendar::SearchDirection;

// --- The pieces of a question ---------------------------------------------------------------------------------------

Datestamp now() {
  return {.date = Date::now(), .type = DatestampType::now, .timezone = Calendar::current().timeZone()};
}

/// The place of a zone or of a converter to one.
std::optional<Place> placeOf(const Token& token) {
  if (token.is(TokenType::converter) && token.subtokens) {
    const Token* zone = token.subtokens->firstTokenOfType(TokenType::timezone);
    return zone != nullptr ? placeOfZone(*zone) : std::nullopt;
  }
  return placeOfZone(token);
}

/// A stretch of time, or the one week of "a week".
std::optional<Timespan> timespanOf(const Token& token) {
  if (!token.is(TokenType::unit)) return token.timespanValue();
  const std::optional<TCUnit> unit = token.unitValue();
  return unit ? tavrine::timespanOf(UnitExpression{Decimal(1), *unit}) : std::nullopt;
}

Found conversion(const Token& amount, const Token& target) {
  const std::optional<UnitExpression> from = amount.evaluated().unitExpressionValue();
  const std::optional<TCUnit> to = target.unitValue();
  if (!from || !to) return std::nullopt;
  return Form::Conversion{from->unit, *to, from->value};
}

Found dateBeside(const std::optional<Datestamp>& start, const Token& amount, Direction direction) {
  const std::optional<Timespan> timespan = timespanOf(amount.evaluated());
  if (!start || !timespan) return std::nullopt;
  return Form::DateSeeking{*start, *timespan, direction};
}

std::optional<Datestamp> dateOf(const Token& token) { return token.evaluated().datestampValue(); }

Found interval(const std::optional<Datestamp>& start, const std::optional<Datestamp>& end, std::optional<TCUnit> unit) {
  if (!start || !end) return std::nullopt;
  return Form::IntervalBetweenDatesSeeking{*start, *end, std::move(unit)};
}

// --- Calls of built-in phrases --------------------------------------------------------------------------------------

/// What stands in the gaps of a phrase: the units by themselves, and the rest.
struct Call {
  std::optional<FunctionIdentifier> identifier;
  std::vector<Token> units;
  std::vector<Token> values;

  [[nodiscard]] bool has(std::size_t unitCount, std::size_t valueCount) const {
    return units.size() == unitCount && values.size() == valueCount;
  }
  [[nodiscard]] std::optional<TCUnit> unit() const { return units.empty() ? std::nullopt : units.front().unitValue(); }
};

Call callOf(const Token& token) {
  Call call;
  call.identifier = token.functionIdentifier();
  for (Token& argument : builtInArgumentsOf(token)) {
    (argument.is(TokenType::unit) ? call.units : call.values).push_back(std::move(argument));
  }
  return call;
}

/// "how many miles in 5 km", "5 km is how many miles", and with two units "how many feet in a mile".
Found conversionIn(const Call& call) {
  const bool namesTargetFirst = call.identifier == FunctionIdentifier::unitInUnitExpression;
  if (!namesTargetFirst && call.identifier != FunctionIdentifier::unitConversion) return std::nullopt;
  if (call.has(1, 1)) return conversion(call.values.front(), call.units.front());
  if (!call.has(2, 0)) return std::nullopt;
  const std::optional<TCUnit> from = call.units[namesTargetFirst ? 1 : 0].unitValue();
  const std::optional<TCUnit> to = call.units[namesTargetFirst ? 0 : 1].unitValue();
  if (!from || !to) return std::nullopt;
  return Form::Conversion{*from, *to, Decimal(1)};
}

Found dateSoughtIn(const Call& call) {
  using enum FunctionIdentifier;
  if (call.units.size() + call.values.size() == 0) return std::nullopt;
  const Token& amount = call.units.empty() ? call.values.front() : call.units.front();
  if (call.identifier == calendarUnitExpressionAgo) {
    const bool isAboutHere = call.units.size() + call.values.size() == 1;
    return isAboutHere ? dateBeside(now(), amount, Direction::backward) : std::nullopt;
  }
  const bool isForward = call.identifier == calendarUnitExpressionAfterDate;
  if (!isForward && call.identifier != calendarUnitExpressionBeforeDate) return std::nullopt;
  if (!call.has(0, 2) && !call.has(1, 1)) return std::nullopt;
  return dateBeside(call.values.back().datestampValue(), amount, isForward ? Direction::forward : Direction::backward);
}

/// Both ends included is another question, which has no form.
Found intervalSoughtIn(const Call& call) {
  using enum FunctionIdentifier;
  if (call.units.size() > 1 || call.values.empty()) return std::nullopt;
  const std::optional<Datestamp> date = call.values.front().datestampValue();
  if (call.identifier == calendarUnitToDate && call.values.size() == 1) {
    if (call.unit() && date) return Form::UnitUntilDateSeeking{*call.unit(), *date};
    return interval(now(), date, std::nullopt);
  }
  if (call.identifier == calendarUnitSinceDate && call.values.size() == 1) return interval(date, now(), call.unit());
  if (call.identifier != intervalBetweenDates && call.identifier != calendarUnitBetweenDates) return std::nullopt;
  return call.values.size() == 2 ? interval(date, call.values[1].datestampValue(), call.unit()) : std::nullopt;
}

Found timeSoughtIn(const Call& call) {
  const auto place = [&call](std::size_t index) {
    return index < call.values.size() ? placeOf(call.values[index]) : std::nullopt;
  };
  if (call.identifier == FunctionIdentifier::timeInTimezone && call.has(0, 1) && place(0)) {
    return Form::TimeAtPlaceSeeking{*place(0)};
  }
  if (call.identifier == FunctionIdentifier::differenceBetweenTimezones && call.has(0, 2) && place(0) && place(1)) {
    return Form::TimeDifferenceBetweenPlacesSeeking{*place(0), *place(1)};
  }
  return std::nullopt;
}

// --- The sequences --------------------------------------------------------------------------------------------------

using PrototypeRef = std::shared_ptr<const TokenPrototype>;

PrototypeRef a(TokenType type) { return std::make_shared<TypeTokenPrototype>(type); }
PrototypeRef a(TokenSubType subType) { return std::make_shared<SubTypeTokenPrototype>(subType); }

/// How a line may be built, without its white space and words, and what to make of it.
struct Shape {
  PrototypeSequenceRef sequence;
  Found (*read)(Tokens tokens);

  Shape(std::initializer_list<PrototypeRef> prototypes, Found (*reader)(Tokens tokens))
      : sequence(std::make_shared<const PrototypeSequence>(PrototypeSequence::Prototypes(prototypes))), read(reader) {}
};
using Shapes = std::vector<Shape>;

template <Found (*Read)(const Call&)>
Shape callRead() {
  return {{a(TokenType::wordFunction)}, [](Tokens tokens) { return Read(callOf(tokens[0])); }};
}

Shapes unitConversionSequences() {
  const auto read = [](Tokens tokens) { return conversion(tokens[0], tokens[1]); };
  return {
      {{a(TokenType::unitExpression), a(TokenSubType::unitConverter)}, read},
      {{a(TokenType::compoundUnitExpression), a(TokenSubType::unitConverter)}, read},
      {{a(TokenType::timespan), a(TokenSubType::unitConverter)}, read},
      {{a(TokenType::wordFunction), a(TokenSubType::unitConverter)}, read},
      callRead<conversionIn>(),
  };
}

Shapes dateSeekingSequences() {
  const auto later = [](Tokens tokens) { return dateBeside(dateOf(tokens[0]), tokens[2], Direction::forward); };
  const auto earlier = [](Tokens tokens) { return dateBeside(dateOf(tokens[0]), tokens[2], Direction::backward); };
  const auto added = [](Tokens tokens) { return dateBeside(dateOf(tokens[2]), tokens[0], Direction::forward); };
  Shapes shapes;
  for (const TokenType amount : {TokenType::unitExpression, TokenType::timespan}) {
    shapes.push_back({{a(TokenType::datestamp), a(TokenSubType::additionOperator), a(amount)}, later});
    shapes.push_back({{a(TokenType::datestamp), a(TokenSubType::subtractionOperator), a(amount)}, earlier});
    shapes.push_back({{a(amount), a(TokenSubType::additionOperator), a(TokenType::datestamp)}, added});
  }
  shapes.push_back(callRead<dateSoughtIn>());
  return shapes;
}

Shapes dateIntervalSequences() {
  // What is taken away is where the counting starts.
  const auto between = [](Tokens tokens) { return interval(dateOf(tokens[2]), dateOf(tokens[0]), std::nullopt); };
  const auto betweenInUnits = [](Tokens tokens) {
    return interval(dateOf(tokens[2]), dateOf(tokens[0]), tokens[3].unitValue());
  };
  const PrototypeRef date = a(TokenType::datestamp);
  const PrototypeRef minus = a(TokenSubType::subtractionOperator);
  return {
      {{date, minus, date}, between},
      {{date, minus, date, a(TokenSubType::unitConverter)}, betweenInUnits},
      callRead<intervalSoughtIn>(),
  };
}

Shapes dateConversionSequences() {
  const auto read = [](Tokens tokens) -> Found {
    const std::optional<Datestamp> date = dateOf(tokens[0]);
    const std::optional<Place> place = placeOf(tokens[1]);
    if (!date || !place) return std::nullopt;
    return Form::TimeConversionToPlace{*date, *place};
  };
  return {
      {{a(TokenType::datestamp), a(TokenSubType::timezoneConverter)}, read},
      callRead<timeSoughtIn>(),
  };
}

const std::array<Shapes, 4>& allSequences() {
  static const std::array<Shapes, 4> sequences{unitConversionSequences(), dateSeekingSequences(),
                                               dateIntervalSequences(), dateConversionSequences()};
  return sequences;
}

// --- A line ---------------------------------------------------------------------------------------------------------

Found singleValue(const Token& token) {
  if (token.is(TokenType::number)) return Form::SingleNumber{token.decimalValue()};
  if (token.is(TokenType::unitExpression)) {
    if (auto value = token.unitExpressionValue()) return Form::SingleUnitExpression{*std::move(value)};
  }
  if (token.is(TokenType::datestamp)) {
    if (auto value = token.datestampValue()) return Form::SingleDatestamp{*std::move(value)};
  }
  const auto* call = token.metadataAs<CustomFunctionTokenMetadata>();
  if (!token.is(TokenType::wordFunction) || call == nullptr) return std::nullopt;
  auto parameters = CustomFunctionSubstitutionUtility::functionArgumentsFor(token);
  if (!parameters) return std::nullopt;
  return Form::CustomFunctionCall{call->customFunction, *std::move(parameters)};
}

TokenList withoutComments(const TokenList& list) {
  static const TokenTypeSet left = TokenTypeSet::nonMeaningfulTypes | TokenTypeSet::commentTypes;
  std::vector<Token> tokens;
  for (const Token& token : list) {
    if (!left.contains(token.type)) tokens.push_back(token);
  }
  return TokenList(std::move(tokens));
}

}  // namespace

TokenListMetadata metadataOf(const TokenList& list) {
  const TokenList meaningful = withoutComments(list);
  if (const Token* only = meaningful.onlyMeaningfulToken()) {
    if (Found form = singleValue(*only)) return {{*std::move(form)}};
  }
  for (const Shapes& shapes : allSequences()) {
    for (const Shape& shape : shapes) {
      if (!shape.sequence->matches(meaningful)) continue;
      if (Found form = shape.read(meaningful.tokens())) return {{*std::move(form)}};
    }
  }
  return {};
}

}  // namespace tavrine
