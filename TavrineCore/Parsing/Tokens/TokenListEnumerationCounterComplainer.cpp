#include "TavrineCore/Parsing/Tokens/TokenListEnumerationCounterComplainer.h"

#include <string>

#include "Foundation/Diagnostics.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

TokenListEnumerationCounterComplainer::TokenListEnumerationCounterComplainer(bool enabled, TokenList& tokenList)
    : tokenList_(tokenList) {
  if (!enabled) return;
  startHash_ = tokenList_.hash();
  tokenList_.onEnumerateTokens = [this] { ++counter_; };
}

TokenListEnumerationCounterComplainer::~TokenListEnumerationCounterComplainer() {
  if (startHash_) tokenList_.onEnumerateTokens = nullptr;
}

void TokenListEnumerationCounterComplainer::complainIfNecessary() const {
  if (!startHash_) return;
  if (counter_ >= complainThreshold) {
    diagnose(std::to_string(counter_) + " enumerations for " + tokenList_.rebuiltExpression());
  }
  if (counter_ > 0 && tokenList_.hash() == *startHash_) {
    diagnose("Pointless scan for " + tokenList_.rebuiltExpression());
  }
}

}  // namespace tavrine
