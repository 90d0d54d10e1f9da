#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <set>
#include <string>

#include "Foundation/Environment.h"
#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Evaluation/Support/RuleObserver.h"
#include "TavrineCore/EvaluationController.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ParsingController.h"
#include "Tests/Support/CorpusFile.h"
#include "Tests/Support/CorpusHost.h"
#include "Tests/Support/World.h"

// Every token type, stage, operand pair and converter occurs in the corpus, or stands in coverage-gaps.txt with the
// family that will close the gap. A gap that has been closed fails too, so that the list stays true.

namespace tavrine::testing {
namespace {

std::string nameOf(const Stage& stage) { return "stage " + std::string(stage.name) + " " + std::string(stage.pass); }

std::set<std::string> everything() {
  std::set<std::string> names;
  for (const TokenType type : TokenTypeSet::anyTypes) names.insert("type " + std::string(toString(type)));
  for (const Stage& stage : parserStages()) names.insert(nameOf(stage));
  for (const auto& pair : TokenAndOperatorPairFactory::pairClasses()) names.insert("rule " + std::string(pair.name));
  for (const auto& row : TokenConverterFactory::converterClasses()) names.insert("rule " + std::string(row.name));
  return names;
}

void noteTypes(const TokenList& list, std::set<std::string>& seen) {
  for (const TokenType type : list.typesEverPresentAtAnyDepth()) seen.insert("type " + std::string(toString(type)));
}

std::set<std::string> occurrences() {
  std::set<std::string> seen;
  const ScopedRuleObserver rules([&seen](std::string_view rule) { seen.insert("rule " + std::string(rule)); });
  for (const std::filesystem::path& path : corpusFiles()) {
    const CorpusFile file = CorpusFile::read(path);
    std::unique_ptr<Calculator> calculator;
    VariableList declared;
    for (const CorpusCase& c : file.cases()) {
      const ScopedEnvironment world(worldAt(c.settings.now, c.settings.zone, c.settings.locale));
      if (!calculator || c.startsSession || !c.settings.remembers) {
        calculator = std::make_unique<Calculator>(c.settings.customization());
        for (const Variable& variable : declared.allVariables()) declared.clearVariable(variable.name);
        if (c.settings.hasHost) declared.setVariables(corpusHostVariables()->allVariables());
      }
      calculator->formattingPreferences = c.settings.preferences;
      calculator->calculate(c.line, c.settings.hasHost ? corpusHostVariables() : nullptr);
      const StageObserver observer = [&seen](const Stage& stage, const TokenList& list, bool ran) {
        if (ran) seen.insert(nameOf(stage));
        noteTypes(list, seen);
      };
      const TokenList tokens = calculator->parsingController().parser().tokensFor(c.line, declared, observer);
      const EvaluationResult result =
          calculator->evaluationController().evaluationResultFor(tokens, c.settings.preferences);
      seen.insert("type " + std::string(toString(result.equivalentTokenType())));
      if (const Variable* variable = result.variableValue()) declared.setVariable(*variable);
    }
  }
  return seen;
}

/// "type unit: units" rows: what is missing, and the family that brings it.
std::set<std::string> allowedGaps() {
  std::set<std::string> gaps;
  std::ifstream stream(std::filesystem::path(TAVRINE_CORPUS_DIR) / "coverage-gaps.txt");
  EXPECT_TRUE(stream) << "coverage-gaps.txt can't be read";
  for (std::string row; std::getline(stream, row);) {
    if (row.empty() || row.front() == '#') continue;
    const std::size_t colon = row.rfind(": ");
    EXPECT_NE(colon, std::string::npos) << "a gap without its family: " << row;
    gaps.insert(row.substr(0, colon));
  }
  return gaps;
}

TEST(CorpusCoverage, EveryTypeStageAndRuleOccursOrIsAKnownGap) {
  const std::set<std::string> seen = occurrences();
  const std::set<std::string> gaps = allowedGaps();
  for (const std::string& name : everything()) {
    if (seen.count(name) == 0) {
      EXPECT_EQ(gaps.count(name), 1u) << "never occurs in the corpus: " << name;
    } else {
      EXPECT_EQ(gaps.count(name), 0u) << "no gap any more: " << name;
    }
  }
  const std::set<std::string> known = everything();
  for (const std::string& gap : gaps) EXPECT_EQ(known.count(gap), 1u) << "there is no such thing: " << gap;
}

}  // namespace
}  // namespace tavrine::testing
