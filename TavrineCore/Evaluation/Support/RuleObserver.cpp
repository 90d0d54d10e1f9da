#include "TavrineCore/Evaluation/Support/RuleObserver.h"

#include <utility>

namespace tavrine {

namespace {
constinit thread_local const ScopedRuleObserver::Block* observer = nullptr;
}

ScopedRuleObserver::ScopedRuleObserver(Block block) : block_(std::move(block)), previous_(observer) {
  observer = &block_;
}

ScopedRuleObserver::~ScopedRuleObserver() { observer = previous_; }

void noteRule(std::string_view rule) {
  if (observer != nullptr) (*observer)(rule);
}

}  // namespace tavrine
