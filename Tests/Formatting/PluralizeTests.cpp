#include <gtest/gtest.h>

#include <string_view>

#include "TavrineCore/Utility/Pluralize.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

TEST(Pluralize, FollowsTheNearestRule) {
  struct Case {
    std::string_view singular, plural;
  };
  for (const Case& c : rowsOf<Case>("Formatting/PluralizeTests", "FollowsTheNearestRule"))
    EXPECT_EQ(Pluralize::pluralized(c.singular), c.plural) << c.singular;
}

TEST(Pluralize, TakesASafePluralSOff) {
  struct Case {
    std::string_view word, want;
  };
  for (const Case& c : rowsOf<Case>("Formatting/PluralizeTests", "TakesASafePluralSOff"))
    EXPECT_EQ(singularized(c.word), c.want) << c.word;
}

}  // namespace
}  // namespace tavrine
