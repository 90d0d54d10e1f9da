// "x = 5".

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitDeclarations.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine::passes {

namespace {

using Assignment = VariableDeclarationTokenMetadata::VariableAssignmentOperatorType;

constexpr TokenTypeSet kDeclarations{TokenType::variableDeclaration, TokenType::unitDeclaration};
constexpr TokenTypeSet kBeforeName{TokenType::label, TokenType::conditionalKeyword};

Assignment assignmentBy(TokenSubType subType) {
  switch (subType) {
    case TokenSubType::additionOperator:
      return Assignment::additive;
    case TokenSubType::subtractionOperator:
      return Assignment::subtractive;
    case TokenSubType::multiplicationOperator:
      return Assignment::multiplicative;
    case TokenSubType::divisionOperator:
      return Assignment::divizive;
    default:
      return Assignment::vanilla;
  }
}

struct AssignmentToken {
  Token token;
  Assignment type;
};

/// The operator of "x += 5". Without a name before it it is the name: the "x" of "x = 5" also says "times".
std::optional<std::size_t> operatorBefore(const TokenList& list, std::size_t equals) {
  const auto operation = list.indexBefore(equals, /*ignoreWhitespace=*/true);
  if (!operation || !list[*operation].is(TokenType::operator_)) return std::nullopt;
  const auto name = list.indexBefore(*operation, /*ignoreWhitespace=*/true);
  return name && !kBeforeName.contains(list[*name].type) ? operation : std::nullopt;
}

/// "=" and, where a variable is known, "+=" and the like become operators of assignment; told from last to first.
std::vector<AssignmentToken> wrapAssignmentOperators(TokenList& list) {
  std::vector<AssignmentToken> result;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::equals)) continue;
    std::size_t first = i;
    Assignment type = Assignment::vanilla;
    if (list.typePrecheck(TokenType::variable)) {
      if (const auto operation = operatorBefore(list, i)) {
        first = *operation;
        type = assignmentBy(list[first].subType);
      }
    }
    const TokenSlice slice = list.slice(first, i);
    list.replaceRun(first, i, Token(TokenType::variableAssignmentOperator, slice.stringValue(), slice.range()));
    result.push_back({list[first], type});
    i = first;
  }
  return result;
}

/// "x = ?": the one thing behind the operator is a question.
bool isRemoteQuery(const TokenList& declaration) {
  const Token* last = declaration.getLastToken(/*ignoringWhitespace=*/true);
  if (last == nullptr || !last->is(TokenType::questionMark)) return false;
  const Token* assignment = declaration.firstTokenOfType(TokenType::variableAssignmentOperator);
  if (assignment == nullptr) return false;
  return declaration.scanRight(*assignment, TokenTypeSet::questionMark, TokenTypeSet::whitespaceSet).size() == 1;
}

class DeclarationFinder {
 public:
  DeclarationFinder(TokenList& list, const PassContext& context) : list_(list), context_(context) {}

  /// False when declarations nest too deep: those further left would only nest deeper.
  bool wrap(const AssignmentToken& assignment) {
    // A later "=" may have taken this one into its name.
    const auto index = list_.indexOf(assignment.token);
    if (!index) return true;
    const std::optional<Run> name = nameBefore(*index);
    if (!name) return true;
    const std::optional<Run> value = valueBehind(*index);
    // Names between labels let declarations lie inside of one another: "a: x = a: x = …".
    if (value && depthIn(*value) >= kMaximumNesting) return false;

    if (value && context_.features.additionalOptions.unitDeclarations &&
        identifyUnitDeclarationIn(list_, *name, *value)) {
      ++depth_;
      return true;
    }
    const std::size_t removed = name->last - name->first;
    std::string variableName = declareName(*name);
    if (!value) return true;
    const Run whole{name->first, value->last - removed};
    const Run valueNow{value->first - removed, value->last - removed};
    wrapDeclaration(whole, valueNow, assignment.type, std::move(variableName));
    return true;
  }

 private:
  using Run = TokenRun;

  [[nodiscard]] std::optional<Run> withoutWhitespace(std::size_t first, std::size_t past) const {
    while (first < past && list_[first].is(TokenType::whitespace)) ++first;
    while (past > first && list_[past - 1].is(TokenType::whitespace)) --past;
    if (first == past) return std::nullopt;
    return Run{first, past - 1};
  }
  [[nodiscard]] std::optional<Run> nameBefore(std::size_t index) const {
    std::size_t first = index;
    while (first > 0 && !kBeforeName.contains(list_[first - 1].type)) --first;
    return withoutWhitespace(first, index);
  }
  [[nodiscard]] std::optional<Run> valueBehind(std::size_t index) const {
    std::size_t past = index + 1;
    while (past < list_.count() && !list_[past].is(TokenType::conditionalKeyword)) ++past;
    return withoutWhitespace(index + 1, past);
  }
  /// How many declarations lie inside of one another in the run. Only the one made last can stand in it.
  [[nodiscard]] std::size_t depthIn(Run value) {
    for (std::size_t i = value.first; i <= value.last; ++i) {
      if (kDeclarations.contains(list_[i].type)) return depth_;
    }
    depth_ = 0;
    return depth_;
  }

  std::string declareName(Run name) {
    const TokenSlice slice = list_.slice(name.first, name.last);
    std::string text = slice.stringValue();
    Variable variable(text, std::nullopt, Variable::VariableType::local);
    variable.isPhrase = Lexer::lexemesFor(text, context_.customization.locale()).size() > 1;
    if (const Variable* known = context_.variables.find(text)) variable.definition = known->definition;
    list_.replaceRun(name.first, name.last,
                     Token(TokenType::declaredVariable, TokenSubType::notSpecified, text, slice.range(), nullptr,
                           std::make_shared<const VariableTokenMetadata>(std::move(variable))));
    return text;
  }

  void wrapDeclaration(Run whole, Run value, Assignment type, std::string name) {
    TokenSlice slice = list_.slice(whole.first, whole.last);
    const auto& options = context_.features.additionalOptions;
    if (options.remoteQueries && isRemoteQuery(TokenList(slice.tokens))) {
      list_.replaceRun(whole.first, whole.last, std::move(slice).embedInContainerToken(TokenType::remoteQuery));
      return;
    }
    const Variable* known = context_.variables.find(name);
    auto metadata = std::make_shared<const VariableDeclarationTokenMetadata>(
        type, std::move(name), valueText(value), options.rawStringVariableDefinitions,
        known != nullptr ? std::optional(*known) : std::nullopt);
    list_.replaceRun(whole.first, whole.last,
                     std::move(slice).embedInContainerToken(TokenType::variableDeclaration, TokenSubType::notSpecified,
                                                            std::move(metadata)));
    ++depth_;
  }

  [[nodiscard]] std::string valueText(Run value) const {
    if (const auto* quotation = list_[value.first].metadataAs<QuotationCommentTokenMetadata>()) {
      return quotation->stringValue;
    }
    return list_.slice(value.first, value.last).stringValue();
  }

  TokenList& list_;
  const PassContext& context_;
  std::size_t depth_ = 0;
};

}  // namespace

void identifyVariableDeclarations(TokenList& list, const PassContext& context) {
  DeclarationFinder finder(list, context);
  for (const AssignmentToken& assignment : wrapAssignmentOperators(list)) {
    if (!finder.wrap(assignment)) return;
  }
}

}  // namespace tavrine::passes
