#include "TavrineCore/Parsing/Primitives/TCUnit.h"

#include <atomic>
#include <cstdint>

namespace tavrine {

struct TCUnit::Node {
  Record record;
  /// Computed once: units are keys of the tables that every multiplication asks.
  std::size_t hash;
  bool isPermanent;
  mutable std::atomic<std::uint32_t> handles{1};

  Node(Record theRecord, bool permanent)
      : record(std::move(theRecord)), hash(hashOf(record.symbol, record.converter)), isPermanent(permanent) {}
};

TCUnit TCUnit::counted(Record record) { return TCUnit(new Node(std::move(record), false)); }
TCUnit TCUnit::permanent(Record record) { return TCUnit(new Node(std::move(record), true)); }

UnitIdentifier TCUnit::identifier() const noexcept { return node().record.identifier; }
UnitType TCUnit::unitType() const noexcept { return node().record.unitType; }
const std::string& TCUnit::symbol() const noexcept { return node().record.symbol; }
const TCUnitConverterLinear& TCUnit::converter() const noexcept { return node().record.converter; }
const std::shared_ptr<const UnitDescription>& TCUnit::unitDescription() const noexcept {
  return node().record.unitDescription;
}

std::size_t TCUnit::hash() const noexcept { return node().hash; }

bool TCUnit::haveEqualRecords(const TCUnit& left, const TCUnit& right) noexcept {
  const Node& a = left.node();
  const Node& b = right.node();
  return a.hash == b.hash && a.record.symbol == b.record.symbol && a.record.converter == b.record.converter;
}

const TCUnit::Node& TCUnit::node() const noexcept {
  if (node_ != nullptr) return *node_;
  // The symbol is never shown; a text that no vocabulary holds keeps the null unit unequal to all others.
  static const Node& null = *new Node({.symbol = "Moobeans", .converter = {}, .unitDescription = nullptr}, true);
  return null;
}

void TCUnit::retain() const noexcept {
  if (node_ != nullptr && !node_->isPermanent) node_->handles.fetch_add(1, std::memory_order_relaxed);
}

void TCUnit::release() noexcept {
  if (node_ == nullptr || node_->isPermanent) return;
  if (node_->handles.fetch_sub(1, std::memory_order_acq_rel) == 1) delete node_;
}

}  // namespace tavrine
