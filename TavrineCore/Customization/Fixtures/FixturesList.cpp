#include "TavrineCore/Customization/Fixtures/FixturesList.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Helpers/NumberWordsList.h"
#include "TavrineCore/Parsing/Helpers/Scalars.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {

namespace {

bool hasLetter(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x80) {
      const unsigned char folded = byte | 0x20;
      if (folded >= 'a' && folded <= 'z') return true;
      ++i;
      continue;
    }
    const DecodedScalar next = decodeScalar(text, i);
    if (isAlphabetic(next.scalar)) return true;
    i += std::max<std::size_t>(next.length, 1);
  }
  return false;
}

// The universal spellings without letters, which need no word list to be known. Most of what is asked for is a single
// ASCII character, so those have a table of their own.
class UniversalSymbols {
 public:
  UniversalSymbols() {
    single_.fill(kNone);
    for (std::size_t i = 0; i < kFixtureCount; ++i) {
      const std::string_view raw = rawValue(static_cast<Fixture>(i));
      if (hasLetter(raw)) continue;
      if (raw.size() == 1) {
        single_[static_cast<unsigned char>(raw.front())] = static_cast<std::uint8_t>(i);
      } else {
        longer_.emplace(raw, static_cast<Fixture>(i));
        // Between symbols each character is a lexeme.
        if (clusterCount(raw) > 1) beginnings_.emplace(firstCluster(raw));
      }
    }
  }

  std::optional<Fixture> find(std::string_view text) const {
    if (text.size() == 1) {
      const std::uint8_t index = single_[static_cast<unsigned char>(text.front())];
      if (index == kNone) return std::nullopt;
      return static_cast<Fixture>(index);
    }
    const auto found = longer_.find(text);
    if (found == longer_.end()) return std::nullopt;
    return found->second;
  }

  bool beginsLongerSymbol(std::string_view text) const { return beginnings_.contains(text); }

 private:
  static constexpr std::uint8_t kNone = 0xFF;
  static_assert(kFixtureCount < kNone);

  std::array<std::uint8_t, 256> single_{};
  StringMap<Fixture> longer_;
  StringSet beginnings_;
};

const UniversalSymbols& universalSymbols() {
  static const UniversalSymbols symbols;
  return symbols;
}

std::optional<Fixture> lookUp(const StringMap<Fixture>& map, std::string_view fragment) {
  if (const auto found = map.find(fragment); found != map.end()) return found->second;
  if (isLowercased(fragment)) return std::nullopt;
  if (const auto found = map.find(lowercased(fragment)); found != map.end()) return found->second;
  return std::nullopt;
}

// A language may take a universal word for a meaning of its own. But it can't turn the three converter words, which
// differ in meaning, into the one converter that it has, and signs stay what they are everywhere.
bool replaces(Fixture added, Fixture present, std::string_view word) {
  if (!hasLetter(word) && universalSymbols().find(word)) return false;
  if (added == Fixture::converterSymbol) {
    return present != Fixture::converterWordAs && present != Fixture::converterWordTo &&
           present != Fixture::converterWordIn;
  }
  return true;
}

Fixture fixtureFor(DateWordType type) {
  switch (type) {
    case DateWordType::am:
      return Fixture::dateWordAm;
    case DateWordType::pm:
      return Fixture::dateWordPm;
    case DateWordType::month:
      return Fixture::dateWordMonthOfYear;
    case DateWordType::dayOfWeek:
      return Fixture::dateWordDayOfWeek;
    case DateWordType::quarter:
      return Fixture::dateWordQuarterOfYear;
  }
  return Fixture::dateWordDayOfWeek;
}

}  // namespace

FixturesList::FixturesList(StringMap<Fixture> additionalFixtures, const DateWordsList& dateWords,
                           const NumberWordsList& numberWords)
    : additionalFixtures_(std::make_shared<const StringMap<Fixture>>(std::move(additionalFixtures))),
      vocabulary_(std::make_shared<const Vocabulary>(
          vocabularyFrom(*additionalFixtures_, dateWords, numberWords, Locale::current()))),
      spellings_(spellingsOf(vocabulary_)) {}

FixturesList::FixturesList(Lazy<StringMap<Fixture>> additionalFixtures, Lazy<DateWordsList> dateWords,
                           Lazy<NumberWordsList> numberWords)
    : additionalFixtures_(additionalFixtures),
      vocabulary_([additionalFixtures = std::move(additionalFixtures), dateWords = std::move(dateWords),
                   numberWords = std::move(numberWords)] {
        return vocabularyFrom(*additionalFixtures, *dateWords, *numberWords, Locale::current());
      }),
      spellings_(spellingsOf(vocabulary_)) {}

FixturesList::Vocabulary FixturesList::vocabularyFrom(const StringMap<Fixture>& additionalFixtures,
                                                      const DateWordsList& dateWords,
                                                      const NumberWordsList& numberWords, const Locale& lexingLocale) {
  Vocabulary result;
  StringMap<Fixture>& map = result.fixtureMap;
  map = universalFixtures();
  for (const auto& [word, fixture] : additionalFixtures) {
    const auto [place, isNew] = map.try_emplace(word, fixture);
    if (!isNew && replaces(fixture, place->second, word)) place->second = fixture;
  }
  for (const NumberWord& word : numberWords.allNumberWords()) map[word.fragment] = Fixture::numberWord;
  for (const DateWord& word : dateWords.allDateWords()) map[word.fragment] = fixtureFor(word.type);
  for (const std::string_view scalar : Scalars::validScalars)
    map.try_emplace(std::string(scalar), Fixture::numberScalar);

  constexpr std::size_t kUsualPhrases = 512;
  result.beginnings = WordFilter(kUsualPhrases);
  for (const auto& [spelling, fixture] : map) {
    const std::vector<Lexeme> lexemes = Lexer::lexemesFor(spelling, lexingLocale);
    if (lexemes.size() < 2) continue;
    result.multiWordPrefixes.emplace(lexemes.front().string);
    const bool hasBlank = lexemes[1].type == LexemeType::whitespace && lexemes.size() > 2;
    result.beginnings.insertPair(lexemes[0].string, lexemes[hasBlank ? 2 : 1].string);
  }
  result.words = WordFilter::ofKeys(map);
  result.prefixes = WordFilter::ofKeys(result.multiWordPrefixes);
  return result;
}

Lazy<FixturesList::Spellings> FixturesList::spellingsOf(const Lazy<Vocabulary>& vocabulary) {
  return Lazy<Spellings>([vocabulary] {
    Spellings result;
    for (const auto& [spelling, fixture] : vocabulary->fixtureMap) {
      if (!spelling.empty()) result[spelling.front()].emplace_back(spelling, fixture);
    }
    return result;
  });
}

std::optional<Fixture> FixturesList::find(const HashedWord& fragment) const {
  if (!hasLetter(fragment.text)) {
    if (const auto symbol = universalSymbols().find(fragment.text)) return symbol;
    return findAdditional(fragment.text);
  }
  const Vocabulary& vocabulary = *vocabulary_;
  return vocabulary.words.mayContain(fragment) ? lookUp(vocabulary.fixtureMap, fragment.text) : std::nullopt;
}

std::optional<Fixture> FixturesList::findAdditional(std::string_view fragment) const {
  return lookUp(*additionalFixtures_, fragment);
}

bool FixturesList::beginsMultiWordFixture(const HashedWord& firstLexeme) const {
  const std::string_view text = firstLexeme.text;
  if (!vocabulary_.isBuilt() && !hasLetter(text)) return universalSymbols().beginsLongerSymbol(text);
  if (!vocabulary_->prefixes.mayContain(firstLexeme)) return false;
  const StringSet& prefixes = vocabulary_->multiWordPrefixes;
  return prefixes.contains(text) || (!isLowercased(text) && prefixes.contains(lowercased(text)));
}

bool FixturesList::mayBeginMultiWordFixture(const HashedWord& firstLexeme, const HashedWord& secondLexeme) const {
  return !vocabulary_.isBuilt() || vocabulary_->beginnings.mayContainPair(firstLexeme, secondLexeme);
}

FixtureSet FixturesList::fixturesIn(std::string_view string) const {
  FixtureSet result;
  for (std::size_t i = 0; i < string.size(); ++i) {
    const auto candidates = spellings_->find(string[i]);
    if (candidates == spellings_->end()) continue;
    for (const auto& [spelling, fixture] : candidates->second) {
      if (string.substr(i).starts_with(spelling)) result.insert(fixture);
    }
  }
  return result;
}

const StringMap<Fixture>& FixturesList::fixtureMap() const { return vocabulary_->fixtureMap; }

const StringSet& FixturesList::multiWordFixturesPrefixWordsCache() const { return vocabulary_->multiWordPrefixes; }

const StringMap<Fixture>& FixturesList::universalFixtures() {
  static const StringMap<Fixture> fixtures = [] {
    StringMap<Fixture> result;
    for (std::size_t i = 0; i < kFixtureCount; ++i) {
      const auto fixture = static_cast<Fixture>(i);
      result.emplace(rawValue(fixture), fixture);
    }
    return result;
  }();
  return fixtures;
}

}  // namespace tavrine
