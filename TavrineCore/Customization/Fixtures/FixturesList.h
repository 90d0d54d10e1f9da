#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Foundation/Locale.h"
#include "Foundation/StringMap.h"
#include "Foundation/WordFilter.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Lazy.h"

namespace tavrine {

class DateWordsList;
class NumberWordsList;

/// The fixed words and symbols of a locale: the universal ones, the language's own, its number words and its calendar
/// words.
///
/// The vocabulary is made in two steps, since a line of digits and signs must not wait for words: a fragment without
/// letters asks the universal symbols, then the language's own fixtures; the first fragment with a letter builds the
/// whole. A universal symbol without letters means the same in every language.
class FixturesList {
 public:
  FixturesList(StringMap<Fixture> additionalFixtures, const DateWordsList& dateWords,
               const NumberWordsList& numberWords);
  /// The same, from parts that are made when they are needed.
  FixturesList(Lazy<StringMap<Fixture>> additionalFixtures, Lazy<DateWordsList> dateWords,
               Lazy<NumberWordsList> numberWords);

  /// False for most fragments that begin with a letter and spell no fixture; builds the vocabulary for one.
  bool mayKnow(const HashedWord& fragment) const {
    const unsigned first = fragment.text.empty() ? 0 : static_cast<unsigned char>(fragment.text.front()) | 0x20U;
    return first < 'a' || first > 'z' || vocabulary_->words.mayContain(fragment);
  }

  /// The fixture that the fragment spells, as it stands or else in lower case.
  std::optional<Fixture> find(const HashedWord& fragment) const;

  /// The same among the language's own fixtures alone.
  std::optional<Fixture> findAdditional(std::string_view fragment) const;

  /// False for most words with which no fixture of more than one lexeme begins.
  bool mayBeginPhrase(const HashedWord& word) const {
    return !vocabulary_.isBuilt() || vocabulary_->prefixes.mayContain(word);
  }
  /// Whether a fixture of more than one lexeme may begin with this lexeme. Says no to a fragment without letters whose
  /// phrases hold words while no line has held a word: there is nothing in that line to complete them.
  bool beginsMultiWordFixture(const HashedWord& firstLexeme) const;
  /// Whether one may begin with these two lexemes.
  bool mayBeginMultiWordFixture(const HashedWord& firstLexeme, const HashedWord& secondLexeme) const;

  /// The fixtures whose spellings occur anywhere in the text.
  FixtureSet fixturesIn(std::string_view string) const;

  /// The whole vocabulary; builds it.
  const StringMap<Fixture>& fixtureMap() const;
  /// The first lexemes of all fixtures of more than one lexeme; builds the vocabulary.
  const StringSet& multiWordFixturesPrefixWordsCache() const;
  /// What the localized resources add.
  const StringMap<Fixture>& additionalFixtures() const { return *additionalFixtures_; }

  /// Whether the whole vocabulary has been built.
  bool isBuilt() const { return vocabulary_.isBuilt(); }

  /// Every raw value with its fixture.
  static const StringMap<Fixture>& universalFixtures();

 private:
  struct Vocabulary {
    StringMap<Fixture> fixtureMap;
    StringSet multiWordPrefixes;
    WordFilter words;
    WordFilter prefixes;
    WordFilter beginnings;  // pairs
  };
  // The spellings by their first byte, for the search inside a text; they are views into the vocabulary.
  using Spellings = std::unordered_map<char, std::vector<std::pair<std::string_view, Fixture>>>;

  static Vocabulary vocabularyFrom(const StringMap<Fixture>& additionalFixtures, const DateWordsList& dateWords,
                                   const NumberWordsList& numberWords, const Locale& lexingLocale);
  static Lazy<Spellings> spellingsOf(const Lazy<Vocabulary>& vocabulary);

  Lazy<StringMap<Fixture>> additionalFixtures_;
  Lazy<Vocabulary> vocabulary_;
  Lazy<Spellings> spellings_;
};

}  // namespace tavrine
