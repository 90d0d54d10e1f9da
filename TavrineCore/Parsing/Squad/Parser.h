#pragma once

#include <memory>
#include <string_view>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Squad/Stages.h"

namespace tavrine {

class SubsheetList;
class TokenList;
class VariableList;

/// Turns a line of text into a list of typed tokens, by a fixed chain of passes (see Stages.cpp). No line fails to
/// parse: what no pass claims is a comment.
///
/// Immutable, and without state between lines: several threads may parse on one parser.
class Parser {
 public:
  static constexpr std::string_view sciNoteEChar = "e";
  static constexpr std::string_view uppercaseSciNoteEChar = "E";
  static constexpr std::string_view alternativeExponent = "**";
  static constexpr std::string_view slash = "/";
  static constexpr std::string_view slashSlash = "//";
  static constexpr std::string_view hashTagPrefix = "#";
  static constexpr std::string_view binaryPrefix = "0b";
  static constexpr std::string_view hexPrefix = "0x";
  static constexpr std::string_view octalPrefix = "0o";
  static constexpr std::string_view logicalNotOperator = "!";
  static constexpr std::string_view letterXAsTimes = "x";
  static constexpr std::string_view shortInches = "in";
  static constexpr std::string_view specialISODateSeparator = "T";

  /// The operators that make a line logical.
  static constexpr TokenSubTypeSet logicalOperators{
      TokenSubType::greaterThan,       TokenSubType::greaterThanOrEqualTo, TokenSubType::lessThan,
      TokenSubType::lessThanOrEqualTo, TokenSubType::notEqualTo,           TokenSubType::equalTo,
      TokenSubType::logicalOrOperator, TokenSubType::logicalAndOperator,   TokenSubType::logicalNotOperator};
  static constexpr TokenTypeSet operandsOfLogicalNot{TokenType::subexpression, TokenType::boolean};
  /// What may stand before the items of a list.
  static constexpr TokenTypeSet listSupportingTypes{TokenType::statisticType, TokenType::unit,
                                                    TokenType::javascriptFunctionName, TokenType::prepositionWord};

  explicit Parser(EngineCustomization customization, std::shared_ptr<SubsheetList> subsheetList = nullptr);

  /// The whole chain. The tokens of the answer tile the line: their texts joined are the line, and each token knows
  /// its UTF-16 range in it. A line beyond the limits of ParsingLimits.h is one comment.
  TokenList tokensFor(std::string_view rawExpression, const VariableList& variables) const;
  /// The same, with a look at the list behind every stage.
  TokenList tokensFor(std::string_view rawExpression, const VariableList& variables,
                      const StageObserver& observer) const;

  /// `tokensFor`, then once more if a subsheet that the line names has got its value meanwhile.
  TokenList parseInBackground(std::string_view rawExpression, const VariableList& variables) const;

  /// The first phase alone: a flat list of simple tokens.
  TokenList simpleTokenListFrom(std::string_view expression, const VariableList& variables) const;

  /// The simple tokens of a phrase pattern with its labels and brackets, read with a vocabulary that does not depend
  /// on the customization of any line.
  static TokenList tokenListForPrototypeMatching(std::string_view expression);

  /// Whether digits such as "3/4" may be meant as dates: behind its labels the line names a duration that no operator
  /// makes a divisor, as in "3/4 + 2 weeks".
  static bool shouldAttemptAmbiguousDateParsingIn(const TokenList& tokenList);

  const EngineCustomization& engineCustomization() const { return engineCustomization_; }
  const EngineContent& engineContent() const { return *engineContent_; }
  const std::shared_ptr<const EngineContent>& sharedEngineContent() const { return engineContent_; }
  const NumberDetector& numberDetector() const { return numberDetector_; }
  const std::shared_ptr<SubsheetList>& subsheetList() const { return subsheetList_; }

 private:
  TokenList run(ParsePhase last, std::string_view expression, const VariableList& variables,
                const StageObserver* observer) const;
  bool evaluatePendingSubsheetsIn(const TokenList& list, const VariableList& variables) const;

  EngineCustomization engineCustomization_;
  std::shared_ptr<SubsheetList> subsheetList_;
  std::shared_ptr<const EngineContent> engineContent_;
  NumberDetector numberDetector_;
};

}  // namespace tavrine
