#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Units/SubstanceList.h"
#include "TavrineCore/Imports.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

std::vector<std::string> namesBeginningWith(std::string_view word) {
  std::vector<std::string> result;
  if (const auto* const substances = SubstanceList::multiWordSubstancesBeginningWith(word)) {
    for (const Substance& substance : *substances) result.push_back(substance.name);
  }
  return result;
}

TEST(SubstanceList, FindsWholeNamesInAnyCase) {
  struct Case {
    std::string_view query;
    std::optional<std::string_view> name;
    std::string_view density = "0";
  };
  for (const Case& c : rowsOf<Case>("Customization/SubstanceListTests", "FindsWholeNamesInAnyCase")) {
    const auto substance = SubstanceList::runQuery(c.query);
    ASSERT_EQ(substance.has_value(), c.name.has_value()) << c.query;
    if (!substance) continue;
    EXPECT_EQ(substance->name, *c.name);
    EXPECT_EQ(substance->value, *Decimal::parse(c.density)) << c.query;
  }
}

TEST(SubstanceList, ListsPhrasesByTheirFirstWord) {
  using Names = std::vector<std::string>;
  EXPECT_EQ(namesBeginningWith("Baking"), (Names{"baking chocolate", "baking powder", "baking soda"}));
  // A hyphen ends a word as well.
  EXPECT_EQ(namesBeginningWith("all"), (Names{"all-purpose flour", "all purpose flour"}));
  EXPECT_EQ(namesBeginningWith("goat's"), Names{"goat's milk"});
  // Substances of one word are no phrases.
  EXPECT_EQ(namesBeginningWith("water"), Names{});
  EXPECT_EQ(namesBeginningWith("butter"), Names{"butter oil"});
}

}  // namespace
}  // namespace tavrine
