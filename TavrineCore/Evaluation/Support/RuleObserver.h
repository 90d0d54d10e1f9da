#pragma once

#include <functional>
#include <string_view>

namespace tavrine {

/// Tells which rule of the evaluation decided, as evaluations on this thread go on: dumps and the coverage of the
/// corpus hang on it. Objects nest and are to be destroyed in reverse order.
class ScopedRuleObserver {
 public:
  /// Gets the name of the operand pair ("DecimalPair") or converter ("IntoHexTokenConverter").
  using Block = std::function<void(std::string_view rule)>;

  explicit ScopedRuleObserver(Block block);
  ~ScopedRuleObserver();
  ScopedRuleObserver(const ScopedRuleObserver&) = delete;
  ScopedRuleObserver& operator=(const ScopedRuleObserver&) = delete;

 private:
  Block block_;
  const Block* previous_;
};

/// Called by the registries with the row that won.
void noteRule(std::string_view rule);

}  // namespace tavrine
