#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "Foundation/Environment.h"
#include "Foundation/Text.h"
#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ParsingController.h"
#include "Tests/Support/CorpusFile.h"
#include "Tests/Support/CorpusHost.h"
#include "Tests/Support/Tiling.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

bool updates = false;

std::vector<std::string> answersOf(const CorpusFile& file) {
  std::vector<std::string> answers;
  std::unique_ptr<Calculator> calculator;
  for (const CorpusCase& c : file.cases()) {
    const ScopedEnvironment world(worldAt(c.settings.now, c.settings.zone, c.settings.locale));
    if (!calculator || c.startsSession || !c.settings.remembers) {
      calculator = std::make_unique<Calculator>(c.settings.customization());
    }
    calculator->formattingPreferences = c.settings.preferences;
    answers.push_back(c.settings.hasHost
                          ? calculator->calculateInBackground(c.line, corpusHostVariables()).get().stringValue
                          : calculator->calculate(c.line).stringValue);
  }
  return answers;
}

TEST(Corpus, EveryLineHasItsAnswer) {
  for (const std::filesystem::path& path : corpusFiles()) {
    const CorpusFile file = CorpusFile::read(path);
    const std::vector<std::string> answers = answersOf(file);
    bool changed = false;
    for (std::size_t i = 0; i < answers.size(); ++i) {
      const CorpusCase& c = file.cases()[i];
      if (answers[i] == c.want) continue;
      changed = true;
      if (updates) {
        std::printf("%s:%zu: %s\n- %s\n+ %s\n", path.filename().c_str(), c.lineNumber, c.line.c_str(), c.want.c_str(),
                    answers[i].c_str());
      } else {
        ADD_FAILURE() << path.filename().string() << ":" << c.lineNumber << ": " << c.line << "\n  want: " << c.want
                      << "\n  got:  " << answers[i];
      }
    }
    if (updates && changed) std::ofstream(path) << file.withAnswers(answers);
  }
}

TEST(Corpus, TokensTileEveryLineBehindEveryStage) {
  for (const std::filesystem::path& path : corpusFiles()) {
    const CorpusFile file = CorpusFile::read(path);
    for (const CorpusCase& c : file.cases()) {
      if (!isValidUtf8(c.line)) continue;  // mended before it is parsed
      const ScopedEnvironment world(worldAt(c.settings.now, c.settings.zone, c.settings.locale));
      const Calculator calculator(c.settings.customization());
      std::string broken;
      calculator.parsingController().parser().tokensFor(c.line, VariableList(),
                                                        [&](const Stage& stage, const TokenList& list, bool) {
                                                          if (!broken.empty()) return;
                                                          if (const auto fault = tilingFault(list, c.line, stage))
                                                            broken = std::string(stage.name) + ": " + *fault;
                                                        });
      EXPECT_EQ(broken, "") << path.filename().string() << ":" << c.lineNumber << ": " << c.line;
    }
  }
}

}  // namespace
}  // namespace tavrine::testing

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--update") == 0) tavrine::testing::updates = true;
  }
  return RUN_ALL_TESTS();
}
