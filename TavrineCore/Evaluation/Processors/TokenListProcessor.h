#pragma once

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/Processors/EditableTokenList.h"

namespace tavrine {

/// Rewrites a list between the parser, which keeps every token of the text, and the tree, which wants explicit
/// operators and nothing besides. Made for one evaluation; works on the evaluation's own list.
class TokenListProcessor {
 public:
  explicit TokenListProcessor(const EngineCustomization& customization) : customization_(customization) {}
  virtual ~TokenListProcessor() = default;
  TokenListProcessor(const TokenListProcessor&) = delete;
  TokenListProcessor& operator=(const TokenListProcessor&) = delete;

  virtual void process(EditableTokenList& list) = 0;

 protected:
  const EngineCustomization& customization() const { return customization_; }

 private:
  const EngineCustomization& customization_;
};

/// Values for names: leaves the right side of a declaration, multiplies "2x", and puts the values of variables and
/// subsheets in their place.
class VariablesAndSubsheetsPostProcessor final : public TokenListProcessor {
 public:
  using TokenListProcessor::TokenListProcessor;
  void process(EditableTokenList& list) override;
};

/// Takes the comments out. Words that nobody understood stay: the tree steps over them.
class CommentsPostProcessor final : public TokenListProcessor {
 public:
  using TokenListProcessor::TokenListProcessor;
  void process(EditableTokenList& list) override;
};

/// Spells operators in their canonical way: "×" becomes "*". Not part of an evaluation: for hosts that show them.
class OperatorsPostProcessor final : public TokenListProcessor {
 public:
  using TokenListProcessor::TokenListProcessor;
  void process(EditableTokenList& list) override;
};

/// Takes slash comments, labels and tags out. Not part of an evaluation.
class LabelsAndCommentsPostProcessor final : public TokenListProcessor {
 public:
  using TokenListProcessor::TokenListProcessor;
  void process(EditableTokenList& list) override;
};

}  // namespace tavrine
