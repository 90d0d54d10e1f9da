#include <gtest/gtest.h>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/EvaluationResultFormatter.h"
#include "Tests/Formatting/FormattingTestSupport.h"

namespace tavrine {
namespace {

using testing::number;

TEST(EvaluationResultFormatters, ShowAValueAsALineWould) {
  FormattingPreferences rounded;
  rounded.dp = 2;
  rounded.referencesTakeFormattedValue = true;
  const EvaluationResultFormatter formatter(EngineCustomization::standardWith(Locale("en_US")), rounded);

  const CalculationResult result = formatter.format(EvaluationResult::decimal(number("1234.5678")));
  EXPECT_EQ(result.stringValue, "1,234.57");
  // The value is rounded as that of a typed line is.
  EXPECT_EQ(result.evaluationResult, EvaluationResult::decimal(number("1234.57")));
  ASSERT_NE(result.parsedExpression, nullptr);

  EXPECT_EQ(formatter.format(EvaluationResult::boolean(true)).stringValue, "true");
  EXPECT_EQ(formatter.format(EvaluationResult::none()).stringValue, "");

  // Without preferences of its own: the defaults.
  const EvaluationResultFormatter plain(EngineCustomization::standardWith(Locale("en_US")));
  EXPECT_EQ(plain.format(EvaluationResult::decimal(number("1234.5678"))).stringValue, "1,234.5678");
}

}  // namespace
}  // namespace tavrine
