#include <string_view>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "Tests/Parsing/LineReader.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

TEST(Deidentifier, TurnsWhatNothingUsedIntoWords) {
  const LineReader reader;
  struct Case {
    std::string_view line, want;
  };
  for (const Case& c : rowsOf<Case>("Parsing/DeidentifierTests", "TurnsWhatNothingUsedIntoWords")) {
    EXPECT_EQ(reader.shape(c.line), c.want) << c.line;
  }
  const LineReader keeping([](EngineFeatureFlags& flags) { flags.preserveAllParsedTokenTypes = true; });
  EXPECT_EQ(keeping.shape("in hex and"), "converterSymbol.typeName.conjunctionWord");
  const LineReader planning([](EngineFeatureFlags& flags) { flags.additionalOptions.tripPlanning = true; });
  EXPECT_EQ(planning.shape("5 of in"), "number.prepositionWord.wordComment");
}

TEST(Deidentifier, LeavesReferencesToLinesAlone) {
  LineReader reader;
  reader.declare("①", EvaluationResult::decimal(Decimal(5)), Variable::VariableType::lineReference);
  EXPECT_EQ(reader.shape("① = 5"), "variable.wordComment.wordComment");
}

}  // namespace
}  // namespace tavrine::testing
