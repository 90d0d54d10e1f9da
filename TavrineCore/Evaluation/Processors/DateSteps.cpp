#include <map>
#include <utility>
#include <vector>

#include "TavrineCore/Evaluation/Processors/GeneralPostProcessor.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"

namespace tavrine::processing {

namespace {

constexpr UnitTypeSet kUnitTypesBesideDates{UnitType::duration, UnitType::frequency, UnitType::frames,
                                            UnitType::frameRate};

bool hasUnitThatDatesDoNotGoWith(const TokenList& list, TokenType dateType) {
  bool found = false;
  list.enumerateAllTokensOfType(
      TokenType::unitExpression, false, [&](const Token& token, const TokenList&, const Token* parent, bool& stop) {
        // "$100 per week * Q1 2026": a rate goes with the time that a span lasts, whatever it is a rate of.
        if (dateType == TokenType::datespan && parent != nullptr && parent->is(TokenType::rate)) return;
        const auto unit = token.unitValue();
        found = unit && !kUnitTypesBesideDates.contains(unit->unitType());
        stop = found;
      });
  return found;
}

/// Whether what looks like a date is arithmetic: "3/4 + 5" holds a plain number besides, "3/4 km" a length.
bool shouldDeidentify(TokenType dateType, const TokenList& list) {
  for (const Token& token : list) {
    if (token.is(TokenType::timespan)) return false;
  }
  return list.scanForTokenWithTypes(TokenType::number, TokenTypeSet::postProcessorDeidentifyDatestampTypes) !=
             nullptr ||
         hasUnitThatDatesDoNotGoWith(list, dateType);
}

void appendFlattened(const TokenList& list, std::vector<Token>& out) {
  for (const Token& token : list) {
    if (token.subtokens) {
      appendFlattened(*token.subtokens, out);
    } else {
      out.push_back(token);
    }
  }
}

}  // namespace

void deidentifyUnwantedDatestampsAndSpans(EditableTokenList& list) {
  constexpr TokenTypeSet datestampsAndSpans{TokenType::datestamp, TokenType::datespan};
  constexpr TokenTypeSet parentsThatWantDates{TokenType::wordFunction, TokenType::conditionalExpression,
                                              TokenType::datespan};
  // The dates of one list share their fate, and so do its spans: it is decided before the first of them goes, and once.
  std::map<std::pair<const TokenList*, TokenType>, bool> isArithmetic;
  forEachToken(list, datestampsAndSpans, [&](EditableTokenList& tokens, std::size_t index, const Token* parent) {
    if (parent != nullptr && parentsThatWantDates.contains(parent->type)) return index;
    const TokenType type = tokens[index].type;
    const auto [decision, isNew] = isArithmetic.try_emplace({tokens.source(), type}, false);
    if (isNew) decision->second = shouldDeidentify(type, tokens.list());
    if (!decision->second) return index;
    if (type == TokenType::datespan) return tokens.deidentify(index);
    const TokenListRef subtokens = tokens[index].subtokens;
    if (!subtokens || subtokens->firstTokenOfType(TokenType::operator_) == nullptr) return index;
    std::vector<Token> inside;
    appendFlattened(*subtokens, inside);
    return tokens.replace(index, index, std::move(inside));
  });
}

}  // namespace tavrine::processing
