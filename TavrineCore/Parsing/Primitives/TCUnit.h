#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include "TavrineCore/Parsing/Primitives/TCUnitConverterLinear.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

struct UnitDescription;

/// A unit of measure: a handle, one pointer wide, to an immutable record. Built-in units live for ever and cost nothing
/// to copy; those made for a query (currencies, custom units) are counted. A default-constructed handle is the null
/// unit, which stands where no unit exists.
class TCUnit {
 public:
  struct Record {
    UnitIdentifier identifier = UnitIdentifier::undefined;
    UnitType unitType = UnitType::other;
    /// What is shown behind a number: "km".
    std::string symbol;
    TCUnitConverterLinear converter;
    /// The vocabulary entry that the unit was made from; null for built-in units.
    std::shared_ptr<const UnitDescription> unitDescription;
  };

  /// The null unit: identifier `undefined`, coefficient and constant 0.
  constexpr TCUnit() noexcept = default;
  /// A unit that goes when its last handle goes.
  [[nodiscard]] static TCUnit counted(Record record);
  /// A unit that is never freed: for the tables of built-in units, which make each of them once.
  [[nodiscard]] static TCUnit permanent(Record record);

  TCUnit(const TCUnit& other) noexcept : node_(other.node_) { retain(); }
  TCUnit(TCUnit&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
  TCUnit& operator=(const TCUnit& other) noexcept {
    TCUnit copy(other);
    std::swap(node_, copy.node_);
    return *this;
  }
  TCUnit& operator=(TCUnit&& other) noexcept {
    std::swap(node_, other.node_);
    return *this;
  }
  ~TCUnit() { release(); }

  [[nodiscard]] UnitIdentifier identifier() const noexcept;
  [[nodiscard]] UnitType unitType() const noexcept;
  [[nodiscard]] const std::string& symbol() const noexcept;
  [[nodiscard]] const TCUnitConverterLinear& converter() const noexcept;
  [[nodiscard]] const Decimal& coefficient() const noexcept { return converter().coefficient; }
  [[nodiscard]] const Decimal& constant() const noexcept { return converter().constant; }
  [[nodiscard]] const std::shared_ptr<const UnitDescription>& unitDescription() const noexcept;

  [[nodiscard]] bool isNull() const noexcept { return node_ == nullptr; }
  /// Whether both handles lead to the same record: cheaper than `==`, and never true where `==` is false.
  [[nodiscard]] bool isSameObjectAs(const TCUnit& other) const noexcept { return node_ == other.node_; }

  [[nodiscard]] std::size_t hash() const noexcept;
  /// The same record, or equal symbols and converters. Identifier and kind take no part.
  friend bool operator==(const TCUnit& left, const TCUnit& right) noexcept {
    return left.node_ == right.node_ || haveEqualRecords(left, right);
  }

 private:
  struct Node;

  explicit TCUnit(const Node* node) noexcept : node_(node) {}
  static bool haveEqualRecords(const TCUnit& left, const TCUnit& right) noexcept;
  [[nodiscard]] const Node& node() const noexcept;
  void retain() const noexcept;
  void release() noexcept;

  const Node* node_ = nullptr;
};

static_assert(sizeof(TCUnit) == sizeof(void*));

}  // namespace tavrine
