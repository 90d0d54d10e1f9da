#pragma once

#include <cstdint>
#include <string>

namespace tavrine {

class Token;

/// One position of a phrase: a word, or a gap that tokens of some kind fit. Immutable, shared between threads.
class TokenPrototype {
 public:
  enum class Kind : std::uint8_t {
    literal,
    type,
    subType,
    typedUnit,
    typedUnitExpression,
    arithmeticEntity,
    subExpression,
    anyWord,
    dynamicPlace,
    customType,
  };

  explicit TokenPrototype(Kind kind) : kind_(kind) {}
  TokenPrototype(const TokenPrototype&) = delete;
  TokenPrototype& operator=(const TokenPrototype&) = delete;
  virtual ~TokenPrototype() = default;

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  /// The test on the token as it is. `PrototypeSequence::performMatchCheck` also looks at what brackets come to.
  [[nodiscard]] virtual bool matches(const Token& token) const = 0;
  [[nodiscard]] virtual std::string debugDescription() const = 0;

 private:
  Kind kind_;
};

}  // namespace tavrine
