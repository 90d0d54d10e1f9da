#include "TavrineCore/Parsing/Helpers/NumberWordsList.h"

#include <array>
#include <optional>
#include <utility>

#include "Foundation/SpellOut.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {

namespace {

constexpr std::int64_t kLastOfTheSmall = 99;

constexpr std::array<std::int64_t, 25> kRoundNumbers = {100,
                                                        200,
                                                        300,
                                                        400,
                                                        500,
                                                        600,
                                                        700,
                                                        800,
                                                        900,
                                                        1'000,
                                                        2'000,
                                                        3'000,
                                                        4'000,
                                                        5'000,
                                                        6'000,
                                                        7'000,
                                                        8'000,
                                                        9'000,
                                                        10'000,
                                                        100'000,
                                                        1'000'000,
                                                        10'000'000,
                                                        1'000'000'000,
                                                        100'000'000'000,
                                                        1'000'000'000'000};

constexpr std::string_view kSoftHyphen = "\u00AD";

std::optional<std::string> spelled(std::int64_t number, const SpellOut& spellOut, const Locale& locale) {
  std::optional<std::string> words = spellOut.words(number);
  if (!words) return std::nullopt;
  // Nobody types the places where a long German word may be broken.
  if (locale.hasPrefix("de")) *words = replacingAll(*words, kSoftHyphen, "");
  return lowercased(*words);
}

}  // namespace

NumberWordsList::NumberWordsList(const Locale& locale) {
  if (locale.isChinese()) return;
  const SpellOut spellOut(locale);
  for (std::int64_t number = 0; number <= kLastOfTheSmall; ++number) {
    if (auto word = spelled(number, spellOut, locale)) add(std::move(*word), number);
  }
  for (const std::int64_t number : kRoundNumbers) {
    const auto words = spelled(number, spellOut, locale);
    if (!words) continue;
    add(*words, number);
    // "one hundred" gives "hundred" as well, so that "5 hundred" and "hundreds" of other counts can be built from it.
    const std::vector<Lexeme> lexemes = Lexer::lexemesFor(*words, locale);
    if (lexemes.size() < 2 || splitAtWhitespace(*words).size() != 2) continue;
    const std::string_view last = lexemes.back().string;
    if (!cachedIdentifiers_.contains(last)) add(std::string(last), number);
  }
  if (locale.language() == "en") add("dozen", 12);
}

void NumberWordsList::add(std::string word, std::int64_t number) {
  const auto [place, isNew] = cachedIdentifiers_.try_emplace(word, allNumberWords_.size());
  if (isNew) {
    allNumberWords_.push_back({std::move(word), number});
  } else {
    allNumberWords_[place->second].number = number;
  }
}

const NumberWord* NumberWordsList::numberWordFor(std::string_view fragment) const {
  auto found = cachedIdentifiers_.find(fragment);
  if (found == cachedIdentifiers_.end() && !isLowercased(fragment)) {
    found = cachedIdentifiers_.find(lowercased(fragment));
  }
  return found == cachedIdentifiers_.end() ? nullptr : &allNumberWords_[found->second];
}

}  // namespace tavrine
