#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "Foundation/StringMap.h"
#include "Foundation/WordFilter.h"
#include "Foundation/WordTable.h"

namespace tavrine::testing {

namespace {

using namespace foundation;

/// Short, long and alike: lengths around the steps of the hash, words that differ in one letter.
std::vector<std::string> manyWords() {
  std::vector<std::string> words;
  for (int i = 0; i < 2000; ++i) {
    words.push_back(std::string(static_cast<std::size_t>(i % 27), 'a') + std::to_string(i));
    words.push_back("word" + std::to_string(i) + "s");
  }
  return words;
}

TEST(WordTable, KnowsItsWordsInTheirOrderAndNoOthers) {
  const std::vector<std::string> words = manyWords();
  WordTable<std::size_t> table;
  EXPECT_EQ(table.find("a"), nullptr);
  for (std::size_t i = 0; i < words.size(); ++i) {
    EXPECT_EQ(table.find(words[i]), nullptr) << words[i];
    EXPECT_TRUE(table.tryEmplace(words[i], i).isNew);
  }
  for (std::size_t i = 0; i < words.size(); ++i) {
    const auto again = table.tryEmplace(words[i], 0);
    EXPECT_FALSE(again.isNew);
    EXPECT_EQ(again.value, i);
    table.insertOrAssign(words[i], i + 1);
  }
  ASSERT_EQ(table.size(), words.size());
  std::size_t count = 0;
  for (const auto& [word, value] : table) {
    EXPECT_EQ(word, words[count]);
    EXPECT_EQ(value, ++count);
  }
  EXPECT_EQ(table.find(""), nullptr);
  EXPECT_EQ(table.find("word"), nullptr);
}

TEST(StringHash, TellsAlikeTextsApart) {
  std::unordered_set<std::uint64_t> hashes;
  std::unordered_set<std::string> texts;
  for (const std::string& word : manyWords()) {
    texts.insert(word);
    hashes.insert(hashOfText(word));
  }
  EXPECT_EQ(hashes.size(), texts.size());
  // As a table sees them: few texts on one place.
  std::unordered_map<std::uint64_t, int> places;
  int most = 0;
  for (const std::uint64_t hash : hashes) most = std::max(most, ++places[hash % 4099]);
  EXPECT_LT(most, 12);
}

TEST(WordFilter, NeverRejectsWhatItHolds) {
  std::vector<std::string> words = manyWords();
  words.insert(words.end(), {"", "a", "km/h", "New York", "straße", "ÎLE"});
  const WordFilter filter = WordFilter::ofKeys(words);
  for (std::string word : words) {
    EXPECT_TRUE(filter.mayContain(word)) << word;
    for (char& c : word) {
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    EXPECT_TRUE(filter.mayContain(word)) << word;
  }
}

TEST(WordFilter, RejectsMostOthers) {
  const WordFilter filter = WordFilter::ofKeys(manyWords());
  int passed = 0;
  for (int i = 0; i < 1000; ++i) passed += filter.mayContain("other" + std::to_string(i)) ? 1 : 0;
  EXPECT_LT(passed, 60);
  EXPECT_FALSE(WordFilter().mayContain("x"));
  EXPECT_TRUE(WordFilter().mayContain("é")) << "case is not known beyond ASCII";
}

}  // namespace

}  // namespace tavrine::testing
