#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::testing {

/// Cuts a text into the tokens that a parser would leave: numbers ("5", "-5", "1.5k"), "20%", "0xFF", "0b11", "0o7",
/// operators, "pi", "true", "false", brackets (folded into subexpressions) and a few converters ("inhex", "inpercent",
/// "indp2", ...). Every other word is a word comment. No part of a parser stands between the text and the evaluation.
TokenList tokensOf(std::string_view text);

/// "decimal 7", "percentage 0.2", "hex 255", "boolean true", "error DivideByZero", "none".
std::string describeResult(const EvaluationResult& result);

/// The text through the whole evaluator.
EvaluationResult evaluated(std::string_view text);

/// The text through the tree alone, without rewriting.
EvaluationResult evaluatedAsItStands(std::string_view text);

/// The texts of the tokens of a rewritten list, brackets around what is inside of subexpressions: "5 * -1 * 2".
std::string rewritten(std::string_view text);

}  // namespace tavrine::testing
