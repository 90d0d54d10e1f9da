#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Parsing/Primitives/Subsheet.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

/// A name that stands for a value.
struct VariableTokenMetadata final : TokenMetadataOf<TokenMetadataKind::variable> {
  explicit VariableTokenMetadata(Variable named);

  Variable variable;
  /// The types that the variable's value would bring into a line: a variable that holds a date makes dates count as
  /// present. Found once, when the metadata is made.
  TokenTypeSet typesInDefinition;
};

/// "tax = 20%".
struct VariableDeclarationTokenMetadata final : TokenMetadataOf<TokenMetadataKind::variableDeclaration> {
  /// "=", "+=", "-=", "*=", "/=".
  enum class VariableAssignmentOperatorType : std::uint8_t { vanilla, additive, subtractive, multiplicative, divizive };

  VariableDeclarationTokenMetadata(VariableAssignmentOperatorType operatorType, std::string name,
                                   std::string valueString, bool supportsRawStrings,
                                   std::optional<Variable> preExisting = std::nullopt)
      : type(operatorType),
        variableName(std::move(name)),
        variableValueString(std::move(valueString)),
        supportsRawStringValues(supportsRawStrings),
        preExistingDefinition(std::move(preExisting)) {}
  VariableAssignmentOperatorType type;
  std::string variableName;
  std::string variableValueString;
  bool supportsRawStringValues;
  /// What the name stood for before this line.
  std::optional<Variable> preExistingDefinition;
};

/// "if a > 3 then tax = 20%".
struct ConditionalVariableDeclarationTokenMetadata final
    : TokenMetadataOf<TokenMetadataKind::conditionalVariableDeclaration> {
  ConditionalVariableDeclarationTokenMetadata(std::optional<Token> declaration, std::optional<Token> declared)
      : variableDeclaration(std::move(declaration)), declaredVariable(std::move(declared)) {}
  std::optional<Token> variableDeclaration;
  std::optional<Token> declaredVariable;
};

/// "#food".
struct HashtagTokenMetadata final : TokenMetadataOf<TokenMetadataKind::hashtag> {
  explicit HashtagTokenMetadata(Variable tag) : hashTag(std::move(tag)) {}
  Variable hashTag;
};

/// A sheet within the sheet.
struct SubsheetTokenMetadata final : TokenMetadataOf<TokenMetadataKind::subsheet> {
  explicit SubsheetTokenMetadata(Subsheet sheet) : subsheet(std::move(sheet)) {}
  Subsheet subsheet;
};

}  // namespace tavrine
