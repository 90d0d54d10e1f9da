#include "Tests/Support/Tiling.h"

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Squad/Stages.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::testing {

using namespace foundation;

namespace {

/// Text and ranges of a list from `location` on; moves `location` behind the list.
std::optional<std::string> faultIn(const TokenList& list, std::uint32_t& location) {
  for (const Token& token : list) {
    if (token.range.location != location) return "gap or overlap before " + describe(token);
    if (token.range.length != utf16Length(token.stringValue)) return "text and range differ: " + describe(token);
    if (token.subtokens) {
      std::uint32_t inner = location;
      if (auto fault = faultIn(*token.subtokens, inner)) return "inside of " + describe(token) + ": " + *fault;
      if (!token.subtokens->isEmpty() && inner != location + token.range.length) {
        return "the subtokens end early or late: " + describe(token);
      }
    }
    location += token.range.length;
  }
  return std::nullopt;
}

/// Between these phases the values of variables stand in the list, and its text is not that of the line.
bool mayStandExpanded(const Stage& stage, const TokenList& list) {
  const bool between = stage.phase == ParsePhase::variables || stage.phase == ParsePhase::groups;
  return between && list.anyTypesHaveBeenPresentIn({TokenType::variable, TokenType::subsheet});
}

}  // namespace

std::optional<std::string> tilingFault(const TokenList& list, std::string_view line, const Stage& stage) {
  if (stage.name == "S1") return std::nullopt;  // lexemes, no tokens yet
  std::uint32_t location = 0;
  if (auto fault = faultIn(list, location)) return fault;
  if (mayStandExpanded(stage, list)) return std::nullopt;
  if (list.rebuiltExpression() != line) return "the tokens' text is not the line: " + list.rebuiltExpression();
  return std::nullopt;
}

}  // namespace tavrine::testing
