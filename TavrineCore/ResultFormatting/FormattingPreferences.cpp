#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

#include "Foundation/Hashing.h"
#include "Foundation/Json.h"
#include "TavrineCore/Evaluation/PostEvaluation/ResultConversionRule.h"

namespace tavrine {
namespace {

constexpr unsigned bits(CurrencyFormattingPreferences value) {
  return unsigned{value.useCurrencySymbols} | unsigned{value.roundResults} << 1 |
         unsigned{value.showTrailingZeros} << 2;
}

constexpr CurrencyFormattingPreferences fromBits(unsigned bits) {
  return {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
}

// What a host may set for the whole process, while other threads format. Three booleans go as bits, so that one atomic
// holds them and nobody sees half of a change.
constinit std::atomic<unsigned> standardCurrencyBits{bits({true, true, true})};
constinit std::atomic<unsigned> disabledCurrencyBits{bits({false, false, false})};
constinit std::atomic<int> processMaximumDp{15};

constexpr std::string_view kPrecision = "precision";
constexpr std::string_view kDisableThousandsSeparator = "disableThousandsSeparator";
constexpr std::string_view kDisableNotation = "disableNotation";
constexpr std::string_view kReferencesTakeFormattedValue = "referencesTakeFormattedValue";
constexpr std::string_view kCurrencyFormattingPreferences = "currencyFormattingPreferences";
constexpr std::string_view kUseCurrencySymbols = "useCurrencySymbols";
constexpr std::string_view kRoundResults = "roundResults";
constexpr std::string_view kShowTrailingZeros = "showTrailingZeros";
// Of documents from before the currency settings were three.
constexpr std::string_view kDisableCurrenciesFormatting = "disableCurrenciesFormatting";

const Json* findValue(const Json& object, std::string_view key) {
  const Json* value = object.find(key);
  return value == nullptr || value->isNull() ? nullptr : value;
}

/// Writes to `target` what stands under `key`, if anything does. False when that is no boolean.
bool readBoolean(const Json& object, std::string_view key, bool& target) {
  const Json* value = findValue(object, key);
  if (value == nullptr) return true;
  const std::optional<bool> boolean = value->asBoolean();
  if (boolean) target = *boolean;
  return boolean.has_value();
}

/// The same for a whole number, which other writers may have written as "3.0". Held to the range of an int.
bool readInteger(const Json& object, std::string_view key, int& target) {
  const Json* value = findValue(object, key);
  if (value == nullptr) return true;
  const std::optional<double> number = value->asDouble();
  if (!number || *number != std::trunc(*number)) return false;
  target = static_cast<int>(std::clamp(*number, static_cast<double>(std::numeric_limits<int>::min()),
                                       static_cast<double>(std::numeric_limits<int>::max())));
  return true;
}

Json archivedCurrency(const CurrencyFormattingPreferences& preferences) {
  Json object = Json::object();
  object.set(kUseCurrencySymbols, Json::boolean(preferences.useCurrencySymbols));
  object.set(kRoundResults, Json::boolean(preferences.roundResults));
  object.set(kShowTrailingZeros, Json::boolean(preferences.showTrailingZeros));
  return object;
}

std::optional<CurrencyFormattingPreferences> currencyFromArchive(const Json& archive) {
  const auto boolean = [&archive](std::string_view key) -> std::optional<bool> {
    const Json* value = archive.find(key);
    return value == nullptr ? std::nullopt : value->asBoolean();
  };
  const std::optional<bool> symbols = boolean(kUseCurrencySymbols);
  const std::optional<bool> round = boolean(kRoundResults);
  const std::optional<bool> zeros = boolean(kShowTrailingZeros);
  if (!symbols || !round || !zeros) return std::nullopt;
  return CurrencyFormattingPreferences{*symbols, *round, *zeros};
}

}  // namespace

CurrencyFormattingPreferences CurrencyFormattingPreferences::standard() noexcept {
  return fromBits(standardCurrencyBits.load(std::memory_order_relaxed));
}

void CurrencyFormattingPreferences::setStandard(CurrencyFormattingPreferences value) noexcept {
  standardCurrencyBits.store(bits(value), std::memory_order_relaxed);
}

CurrencyFormattingPreferences CurrencyFormattingPreferences::disabled() noexcept {
  return fromBits(disabledCurrencyBits.load(std::memory_order_relaxed));
}

void CurrencyFormattingPreferences::setDisabled(CurrencyFormattingPreferences value) noexcept {
  disabledCurrencyBits.store(bits(value), std::memory_order_relaxed);
}

struct ResultConversionBehavior::Rules {
  std::vector<ResultConversionRule> rules;
  std::size_t hash = 0;
};

ResultConversionBehavior ResultConversionBehavior::customRules(std::vector<ResultConversionRule> rules) {
  std::size_t hash = rules.size();
  for (const ResultConversionRule& rule : rules) hash = hashCombine(hash, rule.hash());
  ResultConversionBehavior behavior;
  behavior.kind_ = Kind::customRules;
  behavior.rules_ = std::make_shared<const Rules>(Rules{std::move(rules), hash});
  return behavior;
}

ResultConversionBehavior ResultConversionBehavior::automatic() noexcept {
  ResultConversionBehavior behavior;
  behavior.kind_ = Kind::automatic;
  return behavior;
}

std::span<const ResultConversionRule> ResultConversionBehavior::rules() const noexcept {
  if (rules_ == nullptr) return {};
  return rules_->rules;
}

std::size_t ResultConversionBehavior::hash() const noexcept {
  return hashOf(kind_, rules_ == nullptr ? std::size_t{0} : rules_->hash);
}

bool operator==(const ResultConversionBehavior& left, const ResultConversionBehavior& right) noexcept {
  if (left.kind_ != right.kind_) return false;
  if (left.rules_ == right.rules_) return true;
  if (left.rules_ == nullptr || right.rules_ == nullptr) return false;
  return left.rules_->hash == right.rules_->hash && left.rules_->rules == right.rules_->rules;
}

int FormattingPreferences::maximumDp() noexcept { return processMaximumDp.load(std::memory_order_relaxed); }

void FormattingPreferences::setMaximumDp(int value) noexcept {
  processMaximumDp.store(value, std::memory_order_relaxed);
}

Json FormattingPreferences::archived() const {
  Json object = Json::object();
  if (currencyFormattingPreferences != CurrencyFormattingPreferences::standard()) {
    object.set(kCurrencyFormattingPreferences, archivedCurrency(currencyFormattingPreferences));
  }
  if (thousandsSeparatorDisabled) object.set(kDisableThousandsSeparator, Json::boolean(true));
  if (referencesTakeFormattedValue) object.set(kReferencesTakeFormattedValue, Json::boolean(true));
  if (notationPreferences.notationStyle == NotationPreferences::NotationStyle::off) {
    object.set(kDisableNotation, Json::boolean(true));
  }
  if (dp != kDefaultDp) object.set(kPrecision, Json::integer(dp));
  return object;
}

std::optional<FormattingPreferences> FormattingPreferences::fromArchive(const Json& archive) {
  if (archive.asObject() == nullptr) return std::nullopt;
  FormattingPreferences preferences;
  bool isNotationDisabled = false;
  if (!readInteger(archive, kPrecision, preferences.dp) ||
      !readBoolean(archive, kDisableThousandsSeparator, preferences.thousandsSeparatorDisabled) ||
      !readBoolean(archive, kReferencesTakeFormattedValue, preferences.referencesTakeFormattedValue) ||
      !readBoolean(archive, kDisableNotation, isNotationDisabled)) {
    return std::nullopt;
  }
  if (isNotationDisabled) preferences.notationPreferences.notationStyle = NotationPreferences::NotationStyle::off;

  if (const Json* currency = findValue(archive, kCurrencyFormattingPreferences)) {
    const std::optional<CurrencyFormattingPreferences> read = currencyFromArchive(*currency);
    if (!read) return std::nullopt;
    preferences.currencyFormattingPreferences = *read;
  } else {
    bool isDisabled = preferences.currencyFormattingDisabled();
    if (!readBoolean(archive, kDisableCurrenciesFormatting, isDisabled)) return std::nullopt;
    preferences.setCurrencyFormattingDisabled(isDisabled);
  }
  return preferences;
}

std::size_t FormattingPreferences::hash() const noexcept {
  return hashOf(dp, thousandsSeparatorDisabled, bits(currencyFormattingPreferences), notationPreferences.notationStyle,
                notationPreferences.upperNotationThreshold, referencesTakeFormattedValue,
                resultConversionBehavior.hash(), minimumFractionDigits);
}

}  // namespace tavrine
