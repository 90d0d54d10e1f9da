#include "Foundation/PluralRules.h"

#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/plurrule.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "Foundation/StringMap.h"

namespace tavrine::foundation {

namespace {

/// Longer texts are no numbers that we write.
constexpr std::size_t kLongestNumber = 600;

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

}  // namespace

std::string_view toString(PluralCategory category) noexcept { return kNames[static_cast<std::size_t>(category)]; }

PluralCategory pluralCategory(std::string_view number, const Locale& locale) {
  const icu::PluralRules* const rules = rulesFor(locale);
  if (rules == nullptr || !isPlainNumber(number) || number.size() > kLongestNumber) return PluralCategory::other;
  // The digits shown decide, so they are asked for: as many behind the point as the text has.
  const std::size_t point = number.find('.');
  const auto decimals = point == std::string_view::npos ? 0 : static_cast<std::int32_t>(number.size() - point - 1);
  UErrorCode status = U_ZERO_ERROR;
  const icu::number::FormattedNumber formatted =
      icu::number::NumberFormatter::withLocale(icu::Locale::getRoot())
          .precision(icu::number::Precision::fixedFraction(decimals))
          .formatDecimal(icu::StringPiece(number.data(), static_cast<std::int32_t>(number.size())), status);
  const icu::UnicodeString keyword = rules->select(formatted, status);
  return U_SUCCESS(status) ? categoryNamed(keyword) : PluralCategory::other;
}

PluralCategory pluralCategory(double number, const Locale& locale) {
  const icu::PluralRules* const rules = rulesFor(locale);
  return rules == nullptr ? PluralCategory::other : categoryNamed(rules->select(number));
}

}  // namespace tavrine::foundation
