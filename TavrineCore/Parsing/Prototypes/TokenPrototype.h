#pragma once

#include <string>

namespace tavrine {

class Token;

/// One position of a phrase: a word, or a gap that tokens of some kind fit.
class TokenPrototype {
 public:
  virtual ~TokenPrototype() = default;

  [[nodiscard]] virtual bool matches(const Token& token) const = 0;
  [[nodiscard]] virtual std::string debugDescription() const = 0;
};

}  // namespace tavrine
