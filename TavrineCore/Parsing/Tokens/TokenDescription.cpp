// One line about a token, for developers.

#include <string>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

/// Texts are shown on one line.
void appendQuoted(std::string_view text, std::string& result) {
  result += '"';
  for (const char c : text) {
    switch (c) {
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      case '"':
        result += "\\\"";
        break;
      default:
        result += c;
    }
  }
  result += '"';
}

void appendValue(const Token& token, std::string& result) {
  if (const auto value = token.ownDecimalValue()) {
    result += " = ";
    result += value->description();
    if (const auto scalar = token.scalar()) result += " (" + *scalar + ")";
  }
  if (const auto unit = token.unitValue()) result += " unit " + unit->symbol();
  if (const auto* datestamp = token.metadataAs<DatestampTokenMetadata>()) {
    result += " = ";
    result += std::to_string(datestamp->datestamp.date.timeIntervalSince1970());
    result += " s ";
    result += toString(datestamp->datestamp.type);
  }
  if (const auto* variable = token.metadataAs<VariableTokenMetadata>()) {
    result += " = " + variable->variable.debugDescription();
  }
}

void append(const TokenList& list, std::string& result);

void append(const Token& token, std::string& result) {
  result += toString(token.type);
  if (token.subType != TokenSubType::notSpecified) {
    result += '.';
    result += toString(token.subType);
  }
  result += " {" + std::to_string(token.range.location) + ", " + std::to_string(token.range.length) + "} ";
  appendQuoted(token.stringValue, result);
  appendValue(token, result);
  if (!token.subtokens) return;
  result += " ";
  append(*token.subtokens, result);
}

void append(const TokenList& list, std::string& result) {
  result += '[';
  bool isFirst = true;
  for (const Token& token : list) {
    if (!isFirst) result += ", ";
    isFirst = false;
    append(token, result);
  }
  result += ']';
}

}  // namespace

std::string describe(const Token& token) {
  std::string result;
  append(token, result);
  return result;
}

std::string describe(const TokenList& list) {
  std::string result;
  append(list, result);
  return result;
}

}  // namespace tavrine
