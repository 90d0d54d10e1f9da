#pragma once

#include <any>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

namespace foundation {
class Decimal;
}

struct CustomType;
struct CustomUnit;
struct Datespan;
struct Datestamp;
struct DecimalRate;
struct DegreesMinutesSeconds;
struct Fraction;
struct Frametime;
struct GPSCoordinates;
struct iso8601;
struct Laptime;
struct List;
struct Multiplier;
struct Percentage;
struct PercentageRate;
struct Pitch;
struct Place;
struct Resolution;
struct SalesTax;
struct Substance;
struct Timespan;
struct Timestamp;
struct UnitExpression;
struct UnitRange;
struct UnitRate;
struct Variable;
class TCUnit;
class Token;
enum class StatisticType : std::uint8_t;

/// The kinds of result: 37 with a payload, then `pending`, `failed` and `none`.
enum class EvaluationResultCase : std::uint8_t {
#define EVALUATION_RESULT(name, payload, tokenType) name,
#define EVALUATION_RESULT_EMPTY(name, tokenType) name,
#include "TavrineCore/Evaluation/EvaluationResult.def"
};

/// The case's name: "decimal", "unitExpression", ...
std::string_view toString(EvaluationResultCase kind);

namespace detail {

template <EvaluationResultCase kind>
struct EvaluationResultPayload;
#define EVALUATION_RESULT(name, payload, tokenType)            \
  template <>                                                  \
  struct EvaluationResultPayload<EvaluationResultCase::name> { \
    using Type = payload;                                      \
  };
#define EVALUATION_RESULT_EMPTY(name, tokenType)
#include "TavrineCore/Evaluation/EvaluationResult.def"

/// The shared, immutable payload of results, counted.
struct EvaluationResultBox {
  const void* item = nullptr;
  void (*destroy)(const EvaluationResultBox*) = nullptr;
  mutable std::atomic<std::uint32_t> owners{1};
};

}  // namespace detail

/// The typed answer of an evaluation: 12 is a `decimal`, "$10 + 20%" a `unitExpression`, a line that came to nothing
/// is `none`. An immutable value of two words; copies share the payload, from any thread.
class EvaluationResult {
 public:
  using Case = EvaluationResultCase;
  template <Case kind>
  using Payload = typename detail::EvaluationResultPayload<kind>::Type;

  /// `none`.
  constexpr EvaluationResult() noexcept = default;
  EvaluationResult(const EvaluationResult& other) noexcept : kind_(other.kind_), box_(other.box_) {
    if (box_ != nullptr) box_->owners.fetch_add(1, std::memory_order_relaxed);
  }
  EvaluationResult(EvaluationResult&& other) noexcept
      : kind_(std::exchange(other.kind_, Case::none)), box_(std::exchange(other.box_, nullptr)) {}
  EvaluationResult& operator=(EvaluationResult other) noexcept {
    std::swap(kind_, other.kind_);
    std::swap(box_, other.box_);
    return *this;
  }
  ~EvaluationResult() {
    if (box_ != nullptr && box_->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) box_->destroy(box_);
  }

  /// One maker a case: `EvaluationResult::decimal(12)`, `EvaluationResult::boolean(true)`, `EvaluationResult::none()`.
#define EVALUATION_RESULT(name, payload, tokenType) static EvaluationResult name(payload value);
#define EVALUATION_RESULT_EMPTY(name, tokenType) \
  static EvaluationResult name() noexcept { return EvaluationResult(Case::name, nullptr); }
#include "TavrineCore/Evaluation/EvaluationResult.def"

  static const EvaluationResult pendingResult;
  static const EvaluationResult nullResult;

  [[nodiscard]] Case kind() const noexcept { return kind_; }
  [[nodiscard]] bool is(Case kind) const noexcept { return kind_ == kind; }

  /// The payload if this is of that case, otherwise nothing: `if (const auto* p = result.as<Case::percentage>())`.
  template <Case kind>
  [[nodiscard]] const Payload<kind>* as() const noexcept {
    return kind_ == kind && box_ != nullptr ? static_cast<const Payload<kind>*>(box_->item) : nullptr;
  }

  /// The payload as an untyped value; the result itself for the three cases without one.
  [[nodiscard]] std::any resultItem() const;

  /// The type of a token that stands for this result.
  [[nodiscard]] TokenType equivalentTokenType() const noexcept;

  /// A token with this value. The blank token where a token can't carry it: `resolution`, `customType`, `list`, `none`.
  [[nodiscard]] Token tokenized() const;

  /// The number inside, if there is one: 0.2 of "20%", 5 of "5 km", the key 69 of the pitch A4.
  [[nodiscard]] std::optional<Decimal> decimalValue() const;

  /// A plain rendering for use within documents, not for display: "0.2" of "20%", "2x", "true".
  [[nodiscard]] std::optional<std::string> stringValue() const;

  /// The same with its number rounded to `dp` places, half away from zero; nothing for what isn't shown as one number.
  [[nodiscard]] std::optional<EvaluationResult> roundedTo(int dp) const;

  /// The payload of `unitExpression`; for a bare `unit`, one of it.
  [[nodiscard]] std::optional<UnitExpression> unitExpressionValue() const;

  /// The payload of the matching case, otherwise nothing.
  [[nodiscard]] const UnitRate* rateValue() const noexcept { return as<Case::unitRate>(); }
  [[nodiscard]] const bool* booleanValue() const noexcept { return as<Case::boolean>(); }
  [[nodiscard]] const UnitRange* unitRangeValue() const noexcept { return as<Case::unitRange>(); }
  [[nodiscard]] const Datestamp* datestampValue() const noexcept { return as<Case::date>(); }
  [[nodiscard]] const Timespan* timespanValue() const noexcept { return as<Case::timespan>(); }
  [[nodiscard]] const TCUnit* unitValue() const noexcept { return as<Case::unit>(); }
  [[nodiscard]] const Substance* substanceValue() const noexcept { return as<Case::substance>(); }
  [[nodiscard]] const DegreesMinutesSeconds* dmsValue() const noexcept { return as<Case::degreesMinutesSeconds>(); }
  [[nodiscard]] const Variable* variableValue() const noexcept { return as<Case::variable>(); }
  [[nodiscard]] const Place* placeValue() const noexcept { return as<Case::place>(); }
  [[nodiscard]] const GPSCoordinates* gpsCoordinatesValue() const noexcept { return as<Case::gpsCoordinates>(); }

  /// Same case and equal payload.
  friend bool operator==(const EvaluationResult& a, const EvaluationResult& b);
  [[nodiscard]] std::size_t hash() const;

 private:
  constexpr EvaluationResult(Case kind, const detail::EvaluationResultBox* box) noexcept : kind_(kind), box_(box) {}

  Case kind_ = Case::none;
  const detail::EvaluationResultBox* box_ = nullptr;
};
static_assert(sizeof(EvaluationResult) == 2 * sizeof(void*));

/// The first of the results that is `failed` or `pending`, if there is one: an evaluation that needs them all is to
/// answer that. A list with such a member gives the member.
const EvaluationResult* pendingOrFailureResult(std::span<const EvaluationResult> results);

}  // namespace tavrine

template <>
struct std::hash<tavrine::EvaluationResult> {
  std::size_t operator()(const tavrine::EvaluationResult& result) const { return result.hash(); }
};
