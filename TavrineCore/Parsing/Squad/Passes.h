#pragma once

namespace tavrine {
class TokenList;
struct PassContext;
}  // namespace tavrine

/// The passes of the chain, one line each, under the names and in the order in which Stages.cpp lists them. A pass
/// edits the list it is given and leaves alone what it can't apply to.
namespace tavrine::passes {

// SimpleTokenPasses.cpp
/// The line becomes lexemes (in the scratch).
void lexemesFor(TokenList& list, const PassContext& context);
/// Lexemes become the first tokens; "#" and "tag" fuse, and so do "5", " ", "½".
void tokensForLexemes(TokenList& list, const PassContext& context);

// StructurePasses.cpp
/// Balanced brackets become `subexpression` tokens.
void wrapBracketsInSubexpressions(TokenList& list, const PassContext& context);
/// A declaration hides its right side from the list's type cache: the cache is rebuilt from all depths.
void updateTypesCacheIfNecessary(TokenList& list, const PassContext& context);
/// The net behind all passes: a list that no longer is the line gives way to its simple tokens, or to one comment.
void ensureTokensTileTheLine(TokenList& list, const PassContext& context);

// FunctionPasses.cpp
/// "sqrt(16)", "sqrt 16" → one `functionExpression` over the name and a subexpression of its argument; "12 k", where
/// the host has a function "k", likewise. Leaves names without an argument ("round the corner"), and with
/// `functionsRequireParentheses` those without brackets. Counts on wrapped brackets: only those behind a name are left.
void identifyFunctionExpressionsIn(TokenList& list, const PassContext& context);
/// The same for the functions that the host implements; their arguments stay as they are, a `list` of them included.
void identifyJavascriptFunctionsIn(TokenList& list, const PassContext& context);

}  // namespace tavrine::passes
