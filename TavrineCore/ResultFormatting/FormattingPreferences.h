#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/SIThreshold.h"

namespace tavrine::foundation {
class Json;
}

namespace tavrine {

struct ResultConversionRule;

/// How an amount of money is shown.
struct CurrencyFormattingPreferences {
  /// "$5" instead of "5 USD".
  bool useCurrencySymbols = true;
  /// Amounts have the number of decimals that their currency has.
  bool roundResults = true;
  /// A whole amount keeps its decimals: "$5.00".
  bool showTrailingZeros = true;

  /// What `FormattingPreferences` start with: everything on, unless the host has set something else for the process.
  [[nodiscard]] static CurrencyFormattingPreferences standard() noexcept;
  static void setStandard(CurrencyFormattingPreferences value) noexcept;
  /// Everything off, unless the host has set something else for the process.
  [[nodiscard]] static CurrencyFormattingPreferences disabled() noexcept;
  static void setDisabled(CurrencyFormattingPreferences value) noexcept;

  friend constexpr bool operator==(const CurrencyFormattingPreferences&,
                                   const CurrencyFormattingPreferences&) noexcept = default;
};

/// When large and small numbers are abbreviated: "1.5M", "1E15".
struct NotationPreferences {
  /// `auto_` and `on` mean the same to the formatters; only `off` is ever asked for.
  enum class NotationStyle : std::uint8_t { auto_, on, off };

  NotationStyle notationStyle = NotationStyle::auto_;
  /// Numbers from here on get a suffix ("100k").
  SIThreshold upperNotationThreshold = SIThreshold::hundredThousand;

  /// No abbreviation at all.
  static const NotationPreferences off;

  friend constexpr bool operator==(const NotationPreferences&, const NotationPreferences&) noexcept = default;
};

inline constexpr NotationPreferences NotationPreferences::off{NotationPreferences::NotationStyle::off,
                                                              SIThreshold::trillion};

/// Whether a lone value is turned into another form before it is shown, and by which rules. A cheap handle: rules are
/// shared between copies and never change.
class ResultConversionBehavior {
 public:
  enum class Kind : std::uint8_t { customRules, none, automatic };

  ResultConversionBehavior() noexcept = default;
  /// The first rule that fits wins.
  [[nodiscard]] static ResultConversionBehavior customRules(std::vector<ResultConversionRule> rules);
  [[nodiscard]] static ResultConversionBehavior none() noexcept { return {}; }
  [[nodiscard]] static ResultConversionBehavior automatic() noexcept;

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  /// Empty unless the kind is `customRules`.
  [[nodiscard]] std::span<const ResultConversionRule> rules() const noexcept;

  [[nodiscard]] std::size_t hash() const noexcept;
  friend bool operator==(const ResultConversionBehavior& left, const ResultConversionBehavior& right) noexcept;

 private:
  struct Rules;

  Kind kind_ = Kind::none;
  std::shared_ptr<const Rules> rules_;
};

/// The settings that say how a result is displayed. A small value: copying costs at most one counter.
struct FormattingPreferences {
  static constexpr int kDefaultDp = 10;

  /// Decimal places shown at most. Not limited here; the formatter shows no more than a decimal has.
  int dp = kDefaultDp;
  /// "1234.5" instead of "1,234.5".
  bool thousandsSeparatorDisabled = false;
  CurrencyFormattingPreferences currencyFormattingPreferences = CurrencyFormattingPreferences::standard();
  NotationPreferences notationPreferences;
  /// A result is rounded to `dp` before it is kept, so that what refers to it sees what was displayed.
  bool referencesTakeFormattedValue = false;
  ResultConversionBehavior resultConversionBehavior;
  /// Decimal places shown at least.
  int minimumFractionDigits = 0;

  /// The `dp` of results that are exported without formatting: 15, unless the host has set something else for the
  /// process. Doesn't limit `dp`.
  [[nodiscard]] static int maximumDp() noexcept;
  static void setMaximumDp(int value) noexcept;

  /// The inverse of `currencyFormattingPreferences.roundResults`, the other two fields aside.
  [[nodiscard]] bool currencyFormattingDisabled() const noexcept { return !currencyFormattingPreferences.roundResults; }
  void setCurrencyFormattingDisabled(bool disabled) noexcept { currencyFormattingPreferences.roundResults = !disabled; }

  /// Kept for hosts that still set it: always false, and setting it does nothing.
  [[nodiscard]] bool fractionizeWherePossible() const noexcept { return false; }
  void setFractionizeWherePossible(bool) noexcept {}

  /// An object of the settings that differ from the defaults. `resultConversionBehavior`, `minimumFractionDigits` and
  /// the threshold of the notation are no part of it.
  [[nodiscard]] foundation::Json archived() const;
  /// Reads what `archived` writes. Any key may be missing (or null) and then has its default; unknown keys are passed
  /// over. Nothing when `archive` is no object, a value is of the wrong kind, or the currency object lacks one of its
  /// three keys.
  [[nodiscard]] static std::optional<FormattingPreferences> fromArchive(const foundation::Json& archive);

  [[nodiscard]] std::size_t hash() const noexcept;
  friend bool operator==(const FormattingPreferences&, const FormattingPreferences&) noexcept = default;
};

}  // namespace tavrine

template <>
struct std::hash<tavrine::FormattingPreferences> {
  std::size_t operator()(const tavrine::FormattingPreferences& preferences) const noexcept {
    return preferences.hash();
  }
};
