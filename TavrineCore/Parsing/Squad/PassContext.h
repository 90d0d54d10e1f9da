#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Lexing/Lexeme.h"

namespace tavrine {

struct EngineContent;
class EngineCustomization;
struct EngineFeatureFlags;
class NumberDetector;
class Parser;
class SubsheetList;
class VariableList;
class ExpandedTokenListInfo;

/// What a parse carries from one stage to a later one beside the list itself.
struct ParseScratch {
  std::vector<Lexeme> lexemes;  // from the lexer to the first tokens
  /// Present while variables stand expanded in the list: what stood where.
  std::shared_ptr<const ExpandedTokenListInfo> expansion;
};

/// What a pass may read. Everything here is constant during a parse, apart from the scratch.
struct PassContext {
  const Parser& parser;
  const EngineCustomization& customization;
  const EngineFeatureFlags& features;
  const EngineContent& content;
  const NumberDetector& numberDetector;
  const VariableList& variables;
  SubsheetList* subsheets;  // null for a lone calculator
  /// The line as typed. Passes look at it for gates only: the tokens hold its text.
  std::string_view rawExpression;
  ParseScratch& scratch;
};

}  // namespace tavrine
