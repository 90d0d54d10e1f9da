#include "TavrineCore/Parsing/Helpers/SpecialDayList.h"

#include <algorithm>
#include <utility>

#include "Foundation/Locale.h"
#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"

namespace tavrine {

namespace {

template <class Value>
const Value* lookUp(const StringMap<Value>& map, std::string_view word) {
  const auto found = isLowercased(word) ? map.find(word) : map.find(lowercased(word));
  return found == map.end() ? nullptr : &found->second;
}

}  // namespace

SpecialDayList::SpecialDayList(const std::vector<SpecialDay>& days) {
  const Locale locale = Locale::current();
  for (const SpecialDay& day : days) {
    for (const std::string& alias : day.aliases) {
      std::string phrase = lowercased(alias);
      std::vector<std::string> words;
      for (const Lexeme& lexeme : Lexer::lexemesFor(phrase, locale)) {
        if (lexeme.type != LexemeType::whitespace) words.emplace_back(lexeme.string);
      }
      if (words.empty()) continue;
      if (words.size() == 1) {
        specialDayAliasCache_.insert_or_assign(std::move(phrase), day);
      } else {
        multiWordSpecialDaysByPrefixCache_[words.front()].push_back({day, std::move(phrase), std::move(words)});
      }
    }
  }
  for (auto& [word, phrases] : multiWordSpecialDaysByPrefixCache_) {
    std::stable_sort(phrases.begin(), phrases.end(), [](const Phrase& left, const Phrase& right) {
      return std::pair(left.words.size(), left.phrase.size()) > std::pair(right.words.size(), right.phrase.size());
    });
  }
  aliases_ = WordFilter::ofKeys(specialDayAliasCache_);
  firstWords_ = WordFilter::ofKeys(multiWordSpecialDaysByPrefixCache_);
}

const SpecialDay* SpecialDayList::specialDayFor(const HashedWord& fragment) const {
  return mayKnow(fragment) ? lookUp(specialDayAliasCache_, fragment.text) : nullptr;
}

const std::vector<SpecialDayList::Phrase>* SpecialDayList::multiWordSpecialDaysBeginningWith(
    const HashedWord& firstWordOfType) const {
  if (!mayBeginPhrase(firstWordOfType)) return nullptr;
  return lookUp(multiWordSpecialDaysByPrefixCache_, firstWordOfType.text);
}

}  // namespace tavrine
