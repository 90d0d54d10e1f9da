#include <optional>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine::passes {

namespace {

/// UTF-16 units of the tokens' own texts, whatever their ranges say.
std::size_t lengthOfTexts(const TokenList& list) {
  std::size_t length = 0;
  for (const Token& token : list) length += utf16Length(token.stringValue);
  return length;
}

/// The variable that a token holds, whether it uses, declares or tags it.
const Variable* heldVariable(const Token& token) {
  if (const auto* used = token.metadataAs<VariableTokenMetadata>()) return &used->variable;
  if (const auto* tag = token.metadataAs<HashtagTokenMetadata>()) return &tag->hashTag;
  const auto* declaration = token.metadataAs<VariableDeclarationTokenMetadata>();
  return declaration && declaration->preExistingDefinition ? &*declaration->preExistingDefinition : nullptr;
}

void collectTypes(const TokenList& list, TokenTypeSet& types) {
  for (const Token& token : list) {
    types.insert(token.type);
    if (const Variable* variable = heldVariable(token)) {
      if (std::optional<Token> value = tokenOfDefinition(*variable)) {
        TokenList definition;
        definition.append(*std::move(value));
        types.formUnion(definition.typesEverPresent());
      }
    }
    if (token.subtokens) collectTypes(*token.subtokens, types);
  }
}

}  // namespace

void wrapBracketsInSubexpressions(TokenList& list, const PassContext&) { list.wrapBracketsInSubexpressions(); }

void updateTypesCacheIfNecessary(TokenList& list, const PassContext&) {
  TokenTypeSet types;
  collectTypes(list, types);
  list.replaceTypesCache(types);
}

void ensureTokensTileTheLine(TokenList& list, const PassContext& context) {
  const std::size_t length = utf16Length(context.rawExpression);
  if (lengthOfTexts(list) == length) return;

  TokenList simple = context.parser.simpleTokenListFrom(context.rawExpression, context.variables);
  list = lengthOfTexts(simple) == length ? std::move(simple) : commentOver(context.rawExpression);
}

}  // namespace tavrine::passes
