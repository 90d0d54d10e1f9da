#include "Foundation/SpellOut.h"

#include <unicode/locid.h>
#include <unicode/rbnf.h>
#include <unicode/unistr.h>

#include <array>
#include <string_view>

namespace tavrine::foundation {

namespace {

// English is composed here: its rules are few, and reading those of ICU takes longer than all other words of a start.

constexpr std::array<std::string_view, 20> kUpToNineteen = {
    "zero", "one",    "two",    "three",    "four",     "five",    "six",     "seven",     "eight",    "nine",
    "ten",  "eleven", "twelve", "thirteen", "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array<std::string_view, 10> kTens = {"",      "",      "twenty",  "thirty", "forty",
                                                    "fifty", "sixty", "seventy", "eighty", "ninety"};
constexpr std::array<std::string_view, 6> kGroups = {"", "thousand", "million", "billion", "trillion", "quadrillion"};
constexpr std::int64_t kEndOfEnglish = 1'000'000'000'000'000'000;  // from here on figures are written

void appendWord(std::string& words, std::string_view word) {
  if (!words.empty()) words += ' ';
  words += word;
}

void appendBelowThousand(std::string& words, std::size_t number) {
  if (number >= 100) {
    appendWord(words, kUpToNineteen[number / 100]);
    appendWord(words, "hundred");
    number %= 100;
  }
  if (number >= kUpToNineteen.size()) {
    appendWord(words, kTens[number / 10]);
    if (number % 10 != 0) words.append("-").append(kUpToNineteen[number % 10]);
  } else if (number > 0) {
    appendWord(words, kUpToNineteen[number]);
  }
}

/// India counts in lakhs and crores.
bool isComposedHere(const Locale& locale) { return locale.language() == "en" && locale.region() != "IN"; }

/// For numbers below the end of English on both sides.
std::string englishWords(std::int64_t number) {
  if (number == 0) return std::string(kUpToNineteen[0]);
  std::string words;
  if (number < 0) words = "minus";
  auto rest = static_cast<std::uint64_t>(number < 0 ? -number : number);
  std::uint64_t unit = kEndOfEnglish / 1000;
  for (std::size_t group = kGroups.size(); group-- > 0; unit /= 1000) {
    const auto count = static_cast<std::size_t>(rest / unit);
    rest %= unit;
    if (count == 0) continue;
    appendBelowThousand(words, count);
    if (group > 0) appendWord(words, kGroups[group]);
  }
  return words;
}

}  // namespace

struct SpellOut::Impl {
  explicit Impl(const Locale& locale) : format(icu::URBNF_SPELLOUT, icu::Locale(locale.identifier().c_str()), status) {}

  UErrorCode status = U_ZERO_ERROR;  // before `format`, whose construction writes to it
  icu::RuleBasedNumberFormat format;
};

SpellOut::SpellOut(const Locale& locale)
    : locale_(locale), impl_(isComposedHere(locale) ? nullptr : std::make_unique<Impl>(locale)) {}
SpellOut::~SpellOut() = default;
SpellOut::SpellOut(SpellOut&&) noexcept = default;
SpellOut& SpellOut::operator=(SpellOut&&) noexcept = default;

std::optional<std::string> SpellOut::words(std::int64_t number) const {
  if (impl_ == nullptr) {
    if (number < kEndOfEnglish && number > -kEndOfEnglish) return englishWords(number);
    return wordsBy(Impl(locale_), number);
  }
  return wordsBy(*impl_, number);
}

std::optional<std::string> SpellOut::wordsBy(const Impl& impl, std::int64_t number) {
  if (U_FAILURE(impl.status)) return std::nullopt;
  icu::UnicodeString text;
  icu::FieldPosition position;
  UErrorCode status = U_ZERO_ERROR;
  impl.format.format(number, text, position, status);
  if (U_FAILURE(status)) return std::nullopt;
  std::string words;
  text.toUTF8String(words);
  return words;
}

}  // namespace tavrine::foundation
