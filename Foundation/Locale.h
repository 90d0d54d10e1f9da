#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavrine::foundation {

/// How a region counts its weeks.
struct WeekCustoms {
  /// The weekday that a week begins with, Sunday being 1.
  std::uint8_t firstWeekday = 1;
  /// How many days of a year its first week has at least.
  std::uint8_t minimumDaysInFirstWeek = 1;
  /// The days without work: bit 1 for Sunday to bit 7 for Saturday.
  std::uint8_t weekendDays = 1u << 1 | 1u << 7;

  [[nodiscard]] constexpr bool isWeekend(int weekday) const noexcept { return (weekendDays >> weekday & 1) != 0; }
};

enum class MeasurementSystem : std::uint8_t { metric, us, uk };

/// A language and region with its customs, by an identifier such as "en_US", "zh_Hans_CN", "fr". A value that is cheap
/// to copy; attributes are worked out when first asked for, once for all copies, on any thread.
class Locale {
 public:
  static constexpr std::string_view chineseLocalePrefix = "zh";
  static constexpr std::string_view spanishLocalePrefix = "es";

  /// Takes "en-US" for "en_US". Any text makes a locale: of one that nobody knows, the attributes are those of the
  /// root. An empty text gives "en_US".
  explicit Locale(std::string_view identifier);
  /// "en_US".
  Locale();

  /// The locale of the current environment.
  [[nodiscard]] static Locale current();
  /// The locale that the process was started in, by LC_ALL, LC_MESSAGES or LANG, the first that is set.
  [[nodiscard]] static Locale fromSystem();
  /// Of a name as those variables hold it, cut to language, script and region: "fr_FR.UTF-8@euro" gives "fr_FR". A
  /// missing or POSIX locale reads as "en_US", since the POSIX one writes numbers without grouping.
  [[nodiscard]] static Locale fromPosixName(std::string_view name);

  [[nodiscard]] const std::string& identifier() const noexcept;
  /// "zh" of "zh_Hans_CN".
  [[nodiscard]] std::string_view language() const noexcept;
  /// "Hans" of "zh_Hans_CN"; empty when the identifier tells none.
  [[nodiscard]] std::string_view script() const noexcept;
  /// "CN" of "zh_Hans_CN"; empty when the identifier tells none.
  [[nodiscard]] std::string_view region() const noexcept;

  /// Whether the identifier begins with `prefix`.
  [[nodiscard]] bool hasPrefix(std::string_view prefix) const noexcept { return identifier().starts_with(prefix); }
  [[nodiscard]] bool isChinese() const noexcept { return hasPrefix(chineseLocalePrefix); }
  [[nodiscard]] bool isSpanish() const noexcept { return hasPrefix(spanishLocalePrefix); }

  [[nodiscard]] const std::string& decimalSeparator() const;
  /// Absent where the locale's numbers have no grouping.
  [[nodiscard]] std::optional<std::string> groupingSeparator() const;
  [[nodiscard]] const std::string& percentSymbol() const;
  /// "EUR"; absent for a locale without region.
  [[nodiscard]] const std::optional<std::string>& currencyCode() const;
  /// "€"; absent for a locale without region.
  [[nodiscard]] const std::optional<std::string>& currencySymbol() const;
  [[nodiscard]] MeasurementSystem measurementSystem() const;

  [[nodiscard]] const WeekCustoms& weekCustoms() const;

  /// The locale's best date pattern for the fields in `dateTemplate`: "yMMMMd" gives "MMMM d, y" in en_US and
  /// "d MMMM y" in fr_FR. Absent when there is none.
  [[nodiscard]] std::optional<std::string> dateFormatFromTemplate(std::string_view dateTemplate) const;

  /// The code meant by a currency sign before a number: "$", "¥", "£", "€", "₽", "R$", "₿"; absent for others.
  [[nodiscard]] std::optional<std::string> currencyCodeForPrefix(std::string_view prefix) const;
  /// The own currency where its sign is "$", else "USD".
  [[nodiscard]] std::string currencyCodeForDollarSymbol() const;
  /// The own currency where its sign is "¥", else "JPY".
  [[nodiscard]] std::string currencyCodeForYenSymbol() const;
  /// Whether both have grouping and decimal separators, and the same ones.
  [[nodiscard]] bool isNumericallyEquivalentTo(const Locale& other) const;

  [[nodiscard]] std::size_t hash() const noexcept;
  friend bool operator==(const Locale& left, const Locale& right) noexcept {
    return left.data_ == right.data_ || left.identifier() == right.identifier();
  }

 private:
  struct Data;
  std::shared_ptr<const Data> data_;
};

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::Locale> {
  std::size_t operator()(const tavrine::foundation::Locale& locale) const noexcept { return locale.hash(); }
};
