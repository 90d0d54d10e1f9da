#include <gtest/gtest.h>

#include <string_view>

#include "TavrineCore/Utility/Pluralize.h"

namespace tavrine {
namespace {

TEST(Pluralize, FollowsTheNearestRule) {
  struct Case {
    std::string_view singular, plural;
  };
  constexpr Case cases[] = {
      {"cat", "cats"},
      {"CAT", "CATs"},
      {"café", "cafés"},
      {"bus", "buses"},
      {"glas", "glases"},
      {"glass", "glasses"},
      {"city", "cities"},
      {"day", "days"},
      {"box", "boxes"},
      {"ox", "oxen"},
      {"fox", "foxes"},
      {"church", "churches"},
      {"axis", "axes"},
      {"crisis", "crises"},
      {"cactus", "cacti"},
      {"genus", "genera"},
      {"piano", "pianos"},
      {"hero", "heroes"},
      {"knife", "knives"},
      {"half", "halves"},
      {"thief", "thieves"},
      {"hoof", "hooves"},
      {"roof", "roofs"},
      {"leaf", "leaves"},
      {"scarf", "scarves"},
      {"loaf", "loaves"},
      // A rule that may match anywhere does.
      {"nebular", "nebulaer"},
      {"stadium", "stadia"},
      {"man", "men"},
      {"fireman", "firemen"},
      {"human", "humans"},
      {"foot", "feet"},
      {"Tooth", "Teeth"},
      {"person", "people"},
      {"salesperson", "salespersons"},
      {"mouse", "mice"},
      {"index", "indices"},
      {"plateau", "plateaus"},
      {"bureau", "bureaus"},
      {"tableau", "tableaux"},
      {"this", "these"},
      {"that", "those"},
      // Without a plural.
      {"money", "money"},
      {"Rice", "Rice"},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(Pluralize::pluralized(c.singular), c.plural) << c.singular;
}

TEST(Pluralize, TakesASafePluralSOff) {
  struct Case {
    std::string_view word, want;
  };
  constexpr Case cases[] = {
      {"cats", "cat"}, {"days", "day"}, {"glass", "glass"}, {"buses", "buse"},    {"cat", "cat"},
      {"s", "s"},      {"", ""},        {"CATS", "CATS"},   {"moneys", "moneys"},
  };
  for (const Case& c : cases) EXPECT_EQ(singularized(c.word), c.want) << c.word;
}

}  // namespace
}  // namespace tavrine
