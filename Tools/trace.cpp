#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationNode.h"
#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Evaluation/Support/RuleObserver.h"
#include "TavrineCore/EvaluationController.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ParsingController.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"

// Prints the road of a line: its lexemes, the list behind every stage that changed it, the list as it is evaluated, the
// tree, the result and the formatter. The first tool for anyone who asks why a line was read as it was.

namespace {

using namespace tavrine;

constexpr std::string_view kUsage =
    "usage: trace [--all] [--declarations] [--locale IDENTIFIER] LINE...\n"
    "  --all            show also the stages that change nothing\n"
    "  --declarations   let \"x = 5\" declare x, and remember it for the lines behind\n"
    "  --locale         read and print under this locale instead of the current one\n";

struct Options {
  bool allStages = false;
  bool declarations = false;
  std::optional<std::string> locale;
  std::vector<std::string> lines;
};

void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void section(std::string_view title, std::string_view text) {
  print("\n== ");
  print(title);
  print("\n");
  print(text);
  if (!text.ends_with('\n')) print("\n");
}

std::optional<Options> optionsFrom(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--all") {
      options.allStages = true;
    } else if (argument == "--declarations") {
      options.declarations = true;
    } else if (argument == "--locale" && i + 1 < argc) {
      options.locale = argv[++i];
    } else {
      options.lines.emplace_back(argument);
    }
  }
  if (options.lines.empty()) return std::nullopt;
  return options;
}

EngineCustomization customizationFrom(const Options& options) {
  EngineCustomization result =
      options.locale ? EngineCustomization::standardWith(Locale(*options.locale)) : EngineCustomization::standard();
  if (options.declarations) {
    result.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.variableDeclarations = true; });
  }
  return result;
}

std::string lexemesOf(std::string_view line, const Locale& locale) {
  std::string text;
  for (const Lexeme& lexeme : Lexer::lexemesFor(line, locale)) {
    text += std::string(toString(lexeme.type)) + " \"" + std::string(lexeme.string) + "\"\n";
  }
  return text;
}

/// A token a line, what it was fused from below it.
void appendTokens(std::string& text, const TokenList& list, std::size_t depth) {
  for (const Token& token : list) {
    Token alone = token;
    alone.subtokens = nullptr;
    text.append(2 * depth + 2, ' ').append(describe(alone)).append("\n");
    if (token.subtokens) appendTokens(text, *token.subtokens, depth + 1);
  }
}

std::string linesOf(const TokenList& list) {
  std::string text;
  appendTokens(text, list, 0);
  return text;
}

TokenList traceStages(const Parser& parser, const std::string& line, const VariableList& variables, bool allStages) {
  print("\n== stages\n");
  std::string before;
  return parser.tokensFor(line, variables, [&](const Stage& stage, const TokenList& list, bool ran) {
    std::string now = linesOf(list);
    const bool changed = now != before;
    before = std::move(now);
    if (!changed && !allStages) return;
    print("-- " + std::string(stage.name) + " " + std::string(stage.pass));
    if (changed) {
      print("\n" + before);
    } else if (stage.run == nullptr) {
      print("  (no such pass yet)\n");
    } else {
      print(ran ? "  (changed nothing)\n" : "  (gate shut)\n");
    }
  });
}

std::string nameOfFormatter(const EvaluationResult& result) {
  const ModernResultFactory::Row* row = ModernResultFactory::rowFor(result.kind());
  if (row == nullptr) return "none: results of this kind are not shown";
  return std::string(row->formatter) + (row->function == nullptr ? " (not there yet)" : "");
}

void trace(Calculator& calculator, const std::string& line, const VariableList& variables, bool allStages) {
  const EngineCustomization& customization = calculator.customization();
  section("line", line);
  section("lexemes", lexemesOf(line, customization.locale()));
  const TokenList list = traceStages(calculator.parsingController().parser(), line, variables, allStages);

  EditableTokenList processed(list);
  preprocess(processed, customization);
  section("processed list", linesOf(processed.list()));
  const std::optional<EvaluationTree> tree = EvaluationTree::headNode(processed.list());
  section("tree", tree ? tree->ASTDescription() : "none: a lone value, or nothing");

  std::string rules;
  const ScopedRuleObserver observer([&rules](std::string_view rule) { rules.append("  ").append(rule).append("\n"); });
  const CalculationResult result = calculator.calculate(line);
  section("pairs and converters, as they were applied", rules.empty() ? "none" : rules);
  section("result", std::string(toString(result.evaluationResult.kind())) + " " +
                        result.evaluationResult.stringValue().value_or(""));
  section("formatter", nameOfFormatter(result.evaluationResult));
  section("text", result.stringValue);
}

}  // namespace

int main(int argc, char** argv) {
  const std::optional<Options> options = optionsFrom(argc, argv);
  if (!options) {
    print(kUsage);
    return EXIT_FAILURE;
  }
  Calculator calculator(customizationFrom(*options));
  VariableList declared;
  for (const std::string& line : options->lines) {
    trace(calculator, line, declared, options->allStages);
    const TokenList list = calculator.parsingController().parser().tokensFor(line, declared);
    const EvaluationResult result = calculator.evaluationController().evaluationResultFor(list, std::nullopt);
    if (const Variable* variable = result.variableValue()) declared.setVariable(*variable);
  }
  return EXIT_SUCCESS;
}
