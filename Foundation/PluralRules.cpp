#include "Foundation/PluralRules.h"

#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/plurrule.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <string>

#include "Foundation/StringMap.h"

namespace tavrine::foundation {

namespace {

constexpr auto kNames = std::to_array<std::string_view>({"zero", "one", "two", "few", "many", "other"});

PluralCategory categoryNamed(const icu::UnicodeString& keyword) {
  std::string name;
  keyword.toUTF8String(name);
  const auto found = std::ranges::find(kNames, name);
  return found == kNames.end() ? PluralCategory::other : static_cast<PluralCategory>(found - kNames.begin());
}

/// The rules of a locale, made once a thread. They are read only, but shared ones would need a lock that costs as much
/// as asking them. Absent when they can't be made.
const icu::PluralRules* rulesFor(const Locale& locale) {
  constexpr std::size_t mostKept = 64;
  thread_local StringMap<std::unique_ptr<const icu::PluralRules>> kept;
  if (const auto known = kept.find(locale.identifier()); known != kept.end()) return known->second.get();
  if (kept.size() >= mostKept) kept.clear();
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<const icu::PluralRules> rules(
      icu::PluralRules::forLocale(icu::Locale(locale.identifier().c_str()), status));
  if (U_FAILURE(status)) rules.reset();
  return (kept[locale.identifier()] = std::move(rules)).get();
}

bool isPlainNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const auto point = std::min(text.find('.'), text.size());
  const auto areDigits = [](std::string_view digits) {
    return !digits.empty() && std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
  };
  return areDigits(text.substr(0, point)) && (point == text.size() || areDigits(text.substr(point + 1)));
}

struct ShownDigits {
  std::string text;
  std::size_t decimals = 0;
};

constexpr std::size_t kKeptDigits = 12;

/// Shows exactly so many decimals, since the rules look at those that are shown. Slow to make and quick to use.
const icu::number::LocalizedNumberFormatter& formatterWithDecimals(std::size_t decimals) {
  thread_local std::array<std::optional<icu::number::LocalizedNumberFormatter>, kKeptDigits + 1> formatters;
  auto& formatter = formatters[decimals];
  if (!formatter) {
    formatter = icu::number::NumberFormatter::withLocale(icu::Locale::getRoot())
                    .precision(icu::number::Precision::fixedFraction(static_cast<std::int32_t>(decimals)));
  }
  return *formatter;
}

/// Rules ask for the last few digits before and behind the point, and whether there are more. ICU answers in doubles,
/// which lose the last digits of a long number: so those are kept, behind a 1 for all the others.
ShownDigits shortened(std::string_view number) {
  const std::size_t point = std::min(number.find('.'), number.size());
  std::string_view whole = number.substr(0, point);
  if (whole.starts_with('-')) whole.remove_prefix(1);
  whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size() - 1));
  std::string_view decimals = number.substr(std::min(point + 1, number.size()));
  ShownDigits shown;
  if (whole.size() > kKeptDigits) {
    whole.remove_prefix(whole.size() - kKeptDigits);
    shown.text = "1";
  }
  if (decimals.size() > kKeptDigits) decimals.remove_prefix(decimals.size() - kKeptDigits);
  shown.text += whole;
  if (!decimals.empty()) shown.text.append(".").append(decimals);
  shown.decimals = decimals.size();
  return shown;
}

}  // namespace

std::string_view toString(PluralCategory category) noexcept { return kNames[static_cast<std::size_t>(category)]; }

PluralCategory pluralCategory(std::string_view number, const Locale& locale) {
  const icu::PluralRules* const rules = rulesFor(locale);
  if (rules == nullptr || !isPlainNumber(number)) return PluralCategory::other;
  const ShownDigits shown = shortened(number);
  UErrorCode status = U_ZERO_ERROR;
  if (shown.decimals == 0) {
    std::int64_t whole = 0;  // of 13 digits at most, which a double holds exactly
    std::from_chars(shown.text.data(), shown.text.data() + shown.text.size(), whole);
    return categoryNamed(rules->select(static_cast<double>(whole)));
  }
  const icu::number::FormattedNumber formatted =
      formatterWithDecimals(shown.decimals)
          .formatDecimal(icu::StringPiece(shown.text.data(), static_cast<std::int32_t>(shown.text.size())), status);
  const icu::UnicodeString keyword = rules->select(formatted, status);
  return U_SUCCESS(status) ? categoryNamed(keyword) : PluralCategory::other;
}

PluralCategory pluralCategory(double number, const Locale& locale) {
  const icu::PluralRules* const rules = rulesFor(locale);
  return rules == nullptr ? PluralCategory::other : categoryNamed(rules->select(number));
}

}  // namespace tavrine::foundation
