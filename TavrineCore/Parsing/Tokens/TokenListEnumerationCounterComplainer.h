#pragma once

#include <cstddef>
#include <optional>

namespace tavrine {

class TokenList;

/// A developer's tool: counts how often a list is walked during some work, and prints a diagnostic line where that was
/// often or for nothing. It hooks itself into the list, so the list must be the owner's own, not a frozen one.
class TokenListEnumerationCounterComplainer {
 public:
  /// Counts from here to the end of the complainer's life, which the list must outlast. Does nothing unless `enabled`.
  TokenListEnumerationCounterComplainer(bool enabled, TokenList& tokenList);
  ~TokenListEnumerationCounterComplainer();
  TokenListEnumerationCounterComplainer(const TokenListEnumerationCounterComplainer&) = delete;
  TokenListEnumerationCounterComplainer& operator=(const TokenListEnumerationCounterComplainer&) = delete;

  /// Complains of `complainThreshold` walks or more, and of walks that have left the list as it was.
  void complainIfNecessary() const;

  [[nodiscard]] std::size_t counter() const noexcept { return counter_; }

  std::size_t complainThreshold = 5;

 private:
  std::size_t counter_ = 0;
  TokenList& tokenList_;
  /// The hash of the list at the start; absent where nothing is counted.
  std::optional<std::size_t> startHash_;
};

}  // namespace tavrine
