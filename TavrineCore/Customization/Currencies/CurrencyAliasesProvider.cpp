#include "TavrineCore/Customization/Currencies/CurrencyAliasesProvider.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Foundation/Text.h"

namespace tavrine {

namespace {

// Words that stand beside numbers in any text: "all 5", "3 apples etc", "the top 10", "Bob 5", "dot 5", "70 kgs". Other
// codes that are words ("try", "pen") are worth their risk: people do write "100 try in usd".
constexpr std::array<std::string_view, 6> kCodesThatAreOtherWords = {"ALL", "BOB", "DOT", "ETC", "KGS", "TOP"};

bool isAnotherWordInLowerCase(std::string_view code) {
  return std::ranges::find(kCodesThatAreOtherWords, code) != kCodesThatAreOtherWords.end();
}

}  // namespace

CurrencyAliasesProvider::CurrencyAliasesProvider(const std::vector<CurrencyDescription>& descriptions) {
  for (const CurrencyDescription& description : descriptions) {
    std::vector<std::string>& aliases = aliases_[description.symbol];
    aliases.insert(aliases.end(), description.aliases.begin(), description.aliases.end());
  }
}

std::vector<std::string> CurrencyAliasesProvider::aliasesForCurrency(std::string_view code) const {
  std::vector<std::string> result;
  std::string lower = lowercased(code);
  const bool differs = lower != code;
  if (!isAnotherWordInLowerCase(code)) result.push_back(std::move(lower));
  if (const auto found = aliases_.find(code); found != aliases_.end()) {
    result.insert(result.end(), found->second.begin(), found->second.end());
  }
  if (differs) result.emplace_back(code);
  return result;
}

}  // namespace tavrine
