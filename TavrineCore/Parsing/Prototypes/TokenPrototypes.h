#pragma once

#include <memory>
#include <string>
#include <utility>

#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototype.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

class PrototypeSequence;

/// A word or sign. What is in lower case fits every case: "half" fits "HALF", "Half" fits itself alone.
class LiteralTokenPrototype final : public TokenPrototype {
 public:
  /// Calls that happen to be spelled like the word.
  static constexpr TokenTypeSet invalidLiteralTokenTypes{TokenType::wordFunction};

  explicit LiteralTokenPrototype(std::string text) : TokenPrototype(Kind::literal), string_(std::move(text)) {}
  [[nodiscard]] const std::string& string() const noexcept { return string_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override { return '"' + string_ + '"'; }

 private:
  std::string string_;
};

/// Tokens of a type, and calls that are known to give it. A fraction fits where a percentage is wanted.
class TypeTokenPrototype final : public TokenPrototype {
 public:
  explicit TypeTokenPrototype(TokenType wanted) : TokenPrototype(Kind::type), type_(wanted) {}
  [[nodiscard]] TokenType type() const noexcept { return type_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override;

 private:
  TokenType type_;
};

class SubTypeTokenPrototype final : public TokenPrototype {
 public:
  explicit SubTypeTokenPrototype(TokenSubType wanted) : TokenPrototype(Kind::subType), subType_(wanted) {}
  [[nodiscard]] TokenSubType subType() const noexcept { return subType_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override;

 private:
  TokenSubType subType_;
};

/// A unit of a kind: "km" where a length is wanted.
class TypedUnitTokenPrototype final : public TokenPrototype {
 public:
  explicit TypedUnitTokenPrototype(UnitType wanted) : TokenPrototype(Kind::typedUnit), unitType_(wanted) {}
  [[nodiscard]] UnitType unitType() const noexcept { return unitType_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override;

 private:
  UnitType unitType_;
};

/// A value with a unit of a kind: "5 km".
class TypedUnitExpressionTokenPrototype final : public TokenPrototype {
 public:
  explicit TypedUnitExpressionTokenPrototype(UnitType wanted)
      : TokenPrototype(Kind::typedUnitExpression), unitType_(wanted) {}
  [[nodiscard]] UnitType unitType() const noexcept { return unitType_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override;

 private:
  UnitType unitType_;
};

/// Whatever can be calculated with.
class ArithmeticEntityTokenPrototype final : public TokenPrototype {
 public:
  /// What has no number of its own yet but may come to one.
  static constexpr TokenTypeSet additionalAcceptableTypes{TokenType::subexpression, TokenType::functionExpression,
                                                          TokenType::timespan, TokenType::wordFunction};

  ArithmeticEntityTokenPrototype() : TokenPrototype(Kind::arithmeticEntity) {}
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override { return "<number>"; }
};

/// Brackets with a phrase inside.
class SubExpressionTokenPrototype final : public TokenPrototype {
 public:
  explicit SubExpressionTokenPrototype(std::shared_ptr<const PrototypeSequence> inside)
      : TokenPrototype(Kind::subExpression), prototypeSequence_(std::move(inside)) {}
  [[nodiscard]] const PrototypeSequence& prototypeSequence() const noexcept { return *prototypeSequence_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override;

 private:
  std::shared_ptr<const PrototypeSequence> prototypeSequence_;
};

class AnyWordTokenPrototype final : public TokenPrototype {
 public:
  AnyWordTokenPrototype() : TokenPrototype(Kind::anyWord) {}
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override { return "<word>"; }
};

/// A word of a place that only a host's provider knows. It takes the words beside it that may belong to the name.
class DynamicPlaceTokenPrototype final : public TokenPrototype {
 public:
  DynamicPlaceTokenPrototype() : TokenPrototype(Kind::dynamicPlace) {}
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override { return "<place>"; }
};

/// A symbol of a type that a custom function brought along.
class CustomTypeTokenPrototype final : public TokenPrototype {
 public:
  /// `name`: the placeholder of the type, "__planet".
  explicit CustomTypeTokenPrototype(std::string name) : TokenPrototype(Kind::customType), name_(std::move(name)) {}
  [[nodiscard]] const std::string& name() const noexcept { return name_; }
  [[nodiscard]] bool matches(const Token& token) const override;
  [[nodiscard]] std::string debugDescription() const override { return '<' + name_ + '>'; }

 private:
  std::string name_;
};

}  // namespace tavrine
