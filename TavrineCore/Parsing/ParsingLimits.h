#pragma once

#include <cstddef>

/// What the parser bounds, in one place. A line past a limit is a comment: never refused, never lost. Everything that
/// descends into subtokens recurses, and counts on `kMaximumNesting` being held by whoever nests tokens.
namespace tavrine {

/// How deep brackets, and so lists of subtokens, may nest.
inline constexpr std::size_t kMaximumNesting = 200;

/// UTF-16 units of a line that is read at all.
inline constexpr std::size_t kMaximumLineLength = 100'000;

/// Tokens of a line that goes through the passes.
inline constexpr std::size_t kMaximumTokenCount = 20'000;

/// Words of a phrase that is looked up where the caller names no bound of its own.
inline constexpr std::size_t kMaximumPhraseWords = 64;

}  // namespace tavrine
