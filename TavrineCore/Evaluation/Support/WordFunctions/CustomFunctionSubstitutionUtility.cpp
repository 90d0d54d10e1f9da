#include "TavrineCore/Evaluation/Support/WordFunctions/CustomFunctionSubstitutionUtility.h"

#include <cstddef>
#include <iterator>
#include <utility>

#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

const TokenTypeSet CustomFunctionSubstitutionUtility::illegalArgumentTokenTypes =
    TokenTypeSet::commentTokenTypes | TokenTypeSet{TokenType::whitespace,
                                                   TokenType::wordComment,
                                                   TokenType::unidentified,
                                                   TokenType::operator_,
                                                   TokenType::converterSymbol,
                                                   TokenType::prepositionWord,
                                                   TokenType::conjunctionWord,
                                                   TokenType::grammerArticleWord,
                                                   TokenType::percentageSymbol,
                                                   TokenType::ordinalSuffix,
                                                   TokenType::comma,
                                                   TokenType::dot,
                                                   TokenType::semicolon,
                                                   TokenType::colon,
                                                   TokenType::equals,
                                                   TokenType::bracket,
                                                   TokenType::quotationMark};

namespace {

/// The list with the values of its members. Each use of a list works its members out, and with lists inside of lists
/// that would double from one to the next.
Token workedOut(Token list) {
  std::vector<Token> members;
  members.reserve(list.subtokens->count());
  for (const Token& member : *list.subtokens) members.push_back(member.evaluated());
  list.subtokens = TokenList::frozen(std::move(members));
  return list;
}

/// The value of a variable, so that its name needs no looking up later. A tag stays what it is: it stands for its
/// lines.
Token valueOf(const Token& token) {
  if (token.is(TokenType::list) && token.subtokens) return workedOut(token);
  if (token.is(TokenType::hashtag)) return token.evaluated();
  if (const std::optional<Variable> variable = token.variable()) {
    if (std::optional<Token> value = tokenOfDefinition(*variable)) return *std::move(value);
  }
  // At a gap "fifty" is the number, whatever it would be elsewhere in the line.
  if (token.is(TokenType::numberWord) && token.hasDecimalValue()) return TokenFactory::numberWith(token.decimalValue());
  return token.evaluated();
}

/// What the words of the line are where the phrase asks for words: quoted text for a literal, a word for any word.
std::optional<Token> textAt(const TokenPrototype& prototype, const Token& token, WordArguments words) {
  const auto literal = [&token](std::string text) { return Token(TokenType::literal, std::move(text), token.range); };
  if (prototype.kind() == TokenPrototype::Kind::anyWord && words == WordArguments::passed) {
    return literal(token.stringValue);
  }
  const auto* quotation = token.metadataAs<QuotationCommentTokenMetadata>();
  if (prototype.kind() != TokenPrototype::Kind::type || quotation == nullptr) return std::nullopt;
  return literal(quotation->stringValue);
}

}  // namespace

std::optional<std::vector<CustomFunctionArgument>> CustomFunctionSubstitutionUtility::functionArgumentsFor(
    const Token& customFunctionToken) {
  const auto* call = customFunctionToken.metadataAs<CustomFunctionTokenMetadata>();
  if (call == nullptr || call->sequence == nullptr || !customFunctionToken.subtokens) return std::nullopt;
  return functionArgumentsFor(*customFunctionToken.subtokens, *call->sequence);
}

std::vector<CustomFunctionArgument> CustomFunctionSubstitutionUtility::functionArgumentsFor(
    const TokenList& tokenList, const PrototypeSequence& matchedSequence, WordArguments words) {
  std::vector<CustomFunctionArgument> arguments;
  const auto& prototypes = matchedSequence.prototypes();
  if (prototypes.size() != tokenList.count()) return arguments;
  for (std::size_t i = 0; i < prototypes.size(); ++i) {
    const Token& token = tokenList[i];
    if (prototypes[i]->kind() == TokenPrototype::Kind::literal) continue;
    if (std::optional<Token> text = textAt(*prototypes[i], token, words)) {
      EvaluationResult result = text->evaluationResult();
      arguments.push_back({*std::move(text), std::move(result)});
      continue;
    }
    if (illegalArgumentTokenTypes.contains(token.type)) continue;
    if (prototypes[i]->kind() == TokenPrototype::Kind::subExpression && token.subtokens) {
      const auto& inside = static_cast<const SubExpressionTokenPrototype&>(*prototypes[i]).prototypeSequence();
      std::vector<CustomFunctionArgument> found = functionArgumentsFor(*token.subtokens, inside, words);
      arguments.insert(arguments.end(), std::move_iterator(found.begin()), std::move_iterator(found.end()));
      continue;
    }
    Token value = valueOf(token);
    EvaluationResult result = value.evaluationResult();
    // A zone that belongs to no place ("EST") is no result, but built-in functions know what to do with it.
    const bool isBareZone = matchedSequence.functionIdentifier() && value.is(TokenType::timezone);
    if (result.is(EvaluationResultCase::none) && !isBareZone) continue;
    arguments.push_back({std::move(value), std::move(result)});
  }
  return arguments;
}

}  // namespace tavrine
