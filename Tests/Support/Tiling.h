#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrine {
class TokenList;
struct Stage;
}  // namespace tavrine

namespace tavrine::testing {

/// What is wrong with the tokens as a cover of the line, if anything: a gap, an overlap, a text that isn't that of its
/// range, at any depth.
std::optional<std::string> tilingFault(const TokenList& list, std::string_view line, const Stage& stage);

}  // namespace tavrine::testing
