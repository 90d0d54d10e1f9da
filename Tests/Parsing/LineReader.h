#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/Stages.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/Tiling.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {

/// "number' 'operator" and, for what was fused, "label[unidentified colon]". White space is a dot.
inline std::string shapeOf(const TokenList& list) {
  std::string result;
  for (const Token& token : list) {
    if (token.is(TokenType::whitespace)) {
      result += ".";
      continue;
    }
    if (!result.empty() && result.back() != '.') result += " ";
    result += toString(token.type);
    if (token.subtokens) result += "[" + shapeOf(*token.subtokens) + "]";
  }
  return result;
}

/// Parses lines with the flags and variables of a test, and sees to it that the tokens tile the line.
class LineReader {
 public:
  using FlagChange = void (*)(EngineFeatureFlags&);

  explicit LineReader(FlagChange change = nullptr, std::string_view locale = "en_US")
      : world_(worldAt("2026-06-10T09:30:00Z", "UTC", locale)), parser_(customization(locale, change)) {}

  void declare(std::string name, EvaluationResult value, Variable::VariableType type = Variable::VariableType::local) {
    Variable variable(std::move(name), std::nullopt, type);
    variable.isPhrase = variable.name.find(' ') != std::string::npos;
    variable.definition = std::make_shared<const EvaluationResult>(std::move(value));
    variables.setVariable(std::move(variable));
  }

  /// The whole parse, with all that the list remembers.
  TokenList tokens(std::string_view line) const {
    (void)after("L1", line);
    return parser_.tokensFor(line, variables);
  }
  std::string shape(std::string_view line) const { return shapeOf(tokens(line)); }
  /// The list behind the last row of the stage.
  TokenList after(std::string_view stageName, std::string_view line) const {
    TokenList result;
    parser_.tokensFor(line, variables, [&](const Stage& stage, const TokenList& list, bool) {
      if (stage.name == stageName) result = list;
      const bool mayStandExpanded = stage.phase == ParsePhase::variables || stage.phase == ParsePhase::groups;
      if (mayStandExpanded && !variables.isEmpty()) return;
      const auto fault = tilingFault(list, line, stage);
      EXPECT_FALSE(fault) << stage.name << " of \"" << line << "\": " << *fault;
    });
    return result;
  }
  std::string shapeAfter(std::string_view stage, std::string_view line) const { return shapeOf(after(stage, line)); }

  const Parser& parser() const { return parser_; }

  VariableList variables;

 private:
  static EngineCustomization customization(std::string_view locale, FlagChange change) {
    EngineCustomization result = EngineCustomization::standardWith(Locale(locale));
    if (change != nullptr) result.changeFeatureFlags(change);
    return result;
  }

  foundation::ScopedEnvironment world_;
  Parser parser_;
};

}  // namespace tavrine::testing
