#pragma once

#include <span>

#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

/// The types whose tokens have to be worked out; every other token is its own value.
inline constexpr TokenTypeSet kTypesToEvaluate{
    TokenType::subexpression, TokenType::conditionalExpression, TokenType::functionExpression,
    TokenType::wordFunction,  TokenType::variableDeclaration,   TokenType::unitDeclaration,
    TokenType::hashtag,       TokenType::remoteQuery,           TokenType::conditionalVariableDeclaration,
    TokenType::rate,          TokenType::compoundUnitExpression};

[[nodiscard]] inline bool evaluatesToItself(const Token& token) { return !kTypesToEvaluate.contains(token.type); }

/// The first of the tokens that is `pending` or `failed`, if there is one; a list with such a member gives the member.
[[nodiscard]] const Token* pendingOrFailureToken(std::span<const Token> tokens);

}  // namespace tavrine
