#include "TavrineCore/Evaluation/EvaluationResult.h"

#include <memory>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Parsing/Primitives/Datespan.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Primitives/ISO8601.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Parsing/Primitives/MidiNumber.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/Resolution.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Primitives/Timestamp.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRange.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"

namespace tavrine {

namespace {

constexpr std::array kNames = {
#define EVALUATION_RESULT(name, payload, tokenType) std::string_view(#name),
#define EVALUATION_RESULT_EMPTY(name, tokenType) std::string_view(#name),
#include "TavrineCore/Evaluation/EvaluationResult.def"
};
static_assert(kNames.size() == 40);

constexpr std::array kTokenTypes = {
#define EVALUATION_RESULT(name, payload, tokenType) TokenType::tokenType,
#define EVALUATION_RESULT_EMPTY(name, tokenType) TokenType::tokenType,
#include "TavrineCore/Evaluation/EvaluationResult.def"
};

template <class Payload>
struct Box final : detail::EvaluationResultBox {
  explicit Box(Payload&& payload) : value(std::move(payload)) {
    item = &value;
    destroy = [](const detail::EvaluationResultBox* box) { delete static_cast<const Box*>(box); };
  }
  Payload value;
};

using Case = EvaluationResultCase;

}  // namespace

std::string_view toString(EvaluationResultCase kind) { return kNames[static_cast<std::size_t>(kind)]; }

#define EVALUATION_RESULT(name, payload, tokenType)                          \
  EvaluationResult EvaluationResult::name(payload value) {                   \
    return EvaluationResult(Case::name, new Box<payload>(std::move(value))); \
  }
#define EVALUATION_RESULT_EMPTY(name, tokenType)
#include "TavrineCore/Evaluation/EvaluationResult.def"

constinit const EvaluationResult EvaluationResult::pendingResult{Case::pending, nullptr};
constinit const EvaluationResult EvaluationResult::nullResult{Case::none, nullptr};

std::any EvaluationResult::resultItem() const {
  switch (kind_) {
#define EVALUATION_RESULT(name, payload, tokenType) \
  case Case::name:                                  \
    return *as<Case::name>();
#define EVALUATION_RESULT_EMPTY(name, tokenType) \
  case Case::name:                               \
    return *this;
#include "TavrineCore/Evaluation/EvaluationResult.def"
  }
  return {};
}

TokenType EvaluationResult::equivalentTokenType() const noexcept {
  return kTokenTypes[static_cast<std::size_t>(kind_)];
}

std::optional<Decimal> EvaluationResult::decimalValue() const {
  switch (kind_) {
    case Case::decimal:
      return *as<Case::decimal>();
    case Case::scientificNotation:
      return *as<Case::scientificNotation>();
    case Case::percentage:
      return as<Case::percentage>()->decimalValue;
    case Case::fraction:
      return as<Case::fraction>()->decimalValue;
    case Case::multiplier:
      return as<Case::multiplier>()->decimalValue;
    case Case::unitExpression:
      return as<Case::unitExpression>()->value;
    case Case::decimalRate:
      return as<Case::decimalRate>()->value;
    case Case::unitRate:
      return as<Case::unitRate>()->value;
    case Case::percentageRate:
      return as<Case::percentageRate>()->percentage.decimalValue;
    case Case::salesTax:
      return as<Case::salesTax>()->decimalValue;
    case Case::binary:
      return Decimal(*as<Case::binary>());
    case Case::octal:
      return Decimal(*as<Case::octal>());
    case Case::hex:
      return Decimal(*as<Case::hex>());
    case Case::pitch: {
      const auto key = MidiNumber::fromFrequency(Pitch::frequencyFor(*as<Case::pitch>()));
      if (!key) return std::nullopt;
      return Decimal(key->number);
    }
    default:
      return std::nullopt;
  }
}

std::optional<std::string> EvaluationResult::stringValue() const {
  switch (kind_) {
    case Case::rawString:
      return *as<Case::rawString>();
    case Case::multiplier:
      return as<Case::multiplier>()->decimalValue.description() + "x";
    case Case::boolean:
      return *as<Case::boolean>() ? "true" : "false";
    case Case::error:
      return std::string(tavrine::stringValue(*as<Case::error>()));
    case Case::unit:
      return as<Case::unit>()->symbol();
    case Case::pitch:
      return as<Case::pitch>()->notationString();
    case Case::customUnit:
      return as<Case::customUnit>()->name;
    case Case::variable: {
      const Variable& variable = *as<Case::variable>();
      std::optional<std::string> text;
      if (variable.definition) text = variable.definition->stringValue();
      return text ? std::move(text) : variable.name;
    }
    default:
      break;
  }
  const std::optional<Decimal> number = decimalValue();
  if (!number) return std::nullopt;
  return number->description();
}

std::optional<EvaluationResult> EvaluationResult::roundedTo(int dp) const {
  const std::optional<Decimal> number = decimalValue();
  if (!number) return std::nullopt;
  const Decimal rounded = number->rounded(dp, RoundingMode::plain);
  switch (kind_) {
    case Case::decimal:
    case Case::fraction:
    case Case::scientificNotation:
    case Case::multiplier:
      return decimal(rounded);
    case Case::percentage:
      return percentage(Percentage{rounded});
    case Case::unitExpression:
      return unitExpression(UnitExpression{rounded, as<Case::unitExpression>()->unit, true});
    case Case::unitRate: {
      const UnitRate& rate = *as<Case::unitRate>();
      return unitRate(UnitRate{rounded, rate.ofUnit, rate.perUnit, false});
    }
    default:
      return std::nullopt;
  }
}

std::optional<UnitExpression> EvaluationResult::unitExpressionValue() const {
  if (const auto* expression = as<Case::unitExpression>()) return *expression;
  if (const auto* unitItself = as<Case::unit>()) return UnitExpression{Decimal(1), *unitItself, true};
  return std::nullopt;
}

bool operator==(const EvaluationResult& a, const EvaluationResult& b) {
  if (a.kind_ != b.kind_) return false;
  if (a.box_ == b.box_) return true;
  switch (a.kind_) {
#define EVALUATION_RESULT(name, payload, tokenType) \
  case Case::name:                                  \
    return *a.as<Case::name>() == *b.as<Case::name>();
#define EVALUATION_RESULT_EMPTY(name, tokenType) \
  case Case::name:                               \
    return true;
#include "TavrineCore/Evaluation/EvaluationResult.def"
  }
  return false;
}

std::size_t EvaluationResult::hash() const {
  const auto seed = static_cast<std::size_t>(kind_);
  switch (kind_) {
#define EVALUATION_RESULT(name, payload, tokenType) \
  case Case::name:                                  \
    return hashCombine(seed, hashOf(*as<Case::name>()));
#define EVALUATION_RESULT_EMPTY(name, tokenType) \
  case Case::name:                               \
    return hashCombine(seed, 0);
#include "TavrineCore/Evaluation/EvaluationResult.def"
  }
  return seed;
}

const EvaluationResult* pendingOrFailureResult(std::span<const EvaluationResult> results) {
  for (const EvaluationResult& result : results) {
    if (result.is(Case::failed) || result.is(Case::pending)) return &result;
    const List* list = result.as<Case::list>();
    if (list == nullptr || list->members == nullptr) continue;
    if (const EvaluationResult* member = pendingOrFailureResult(*list->members)) return member;
  }
  return nullptr;
}

}  // namespace tavrine
