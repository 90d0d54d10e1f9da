// "1 sprint = 2 weeks".

#include <memory>
#include <string>
#include <utility>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/UnitDeclarations.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

namespace {

/// A unit that nothing is known of, not even a symbol.
TCUnit genericUnitToDeclare() {
  return TCUnit::counted({.identifier = UnitIdentifier::undefined,
                          .unitType = UnitType::other,
                          .symbol = "",
                          .converter = {Decimal(1), Decimal()},
                          .unitDescription = nullptr});
}

std::optional<UnitExpression> unitExpressionIn(const Token& token) {
  if (token.is(TokenType::unitExpression)) return token.unitExpressionValue();
  if (!token.is(TokenType::timespan) || !token.subtokens) return std::nullopt;
  const Token* expression = token.subtokens->first();
  return expression != nullptr && expression->is(TokenType::unitExpression) ? expression->unitExpressionValue()
                                                                            : std::nullopt;
}

struct DeclaredValue {
  UnitExpression expression;
  bool isGeneric;
};

std::optional<DeclaredValue> valueIn(const TokenList& list, TokenRun value) {
  for (std::size_t i = value.last + 1; i-- > value.first;) {
    if (!list[i].is(TokenType::wordFunction)) continue;
    if (list[i].functionIdentifier() != FunctionIdentifier::declareGenericUnit) break;
    return DeclaredValue{{Decimal(1), genericUnitToDeclare()}, /*isGeneric=*/true};
  }
  for (std::size_t i = value.last + 1; i-- > value.first;) {
    if (auto expression = unitExpressionIn(list[i])) return DeclaredValue{*std::move(expression), /*isGeneric=*/false};
  }
  return std::nullopt;
}

std::optional<UnitDeclarationComponents> unitDeclarationComponentsFor(const TokenList& list, TokenRun name,
                                                                      bool requireQuantity) {
  if (list[name.first].is(TokenType::number)) {
    const auto first = list.indexAfter(name.first, /*ignoreWhitespace=*/true);
    if (!first || *first > name.last) return std::nullopt;
    return UnitDeclarationComponents{list.slice(*first, name.last), numberIn(list[name.first])};
  }
  if (requireQuantity) return std::nullopt;
  return UnitDeclarationComponents{list.slice(name.first, name.last), std::nullopt};
}

}  // namespace

bool identifyUnitDeclarationIn(TokenList& list, TokenRun name, TokenRun value) {
  const std::optional<DeclaredValue> declared = valueIn(list, value);
  if (!declared) return false;
  const auto components = unitDeclarationComponentsFor(list, name, /*requireQuantity=*/!declared->isGeneric);
  if (!components) return false;

  const TokenSlice& slice = components->unitNameSlice;
  auto metadata = std::make_shared<const UnitDeclarationTokenMetadata>(
      slice.stringValue(), components->unitValue.value_or(Decimal(1)), declared->expression);
  const std::size_t first = slice.startIndex;
  list.replace(slice, Token(TokenType::declaredUnit, slice.stringValue(), slice.range()));
  list.replaceRun(
      first, list.count() - 1,
      list.slice(first, list.count() - 1)
          .embedInContainerToken(TokenType::unitDeclaration, TokenSubType::notSpecified, std::move(metadata)));
  return true;
}

}  // namespace tavrine
