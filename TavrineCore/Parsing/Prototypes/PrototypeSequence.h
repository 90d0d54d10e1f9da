#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototype.h"

namespace tavrine {

/// What a phrase stands for: a built-in function, a host's function, or a variable of several words.
using PrototypeSequenceMetadata = std::variant<Function, CustomFunction, Variable>;

/// A phrase with typed gaps, position by position. Immutable, and compared by identity.
class PrototypeSequence {
 public:
  using Prototypes = std::vector<std::shared_ptr<const TokenPrototype>>;

  explicit PrototypeSequence(Prototypes prototypes, std::optional<PrototypeSequenceMetadata> metadata = std::nullopt)
      : prototypes_(std::move(prototypes)), metadata_(std::move(metadata)) {}
  PrototypeSequence(const PrototypeSequence&) = delete;
  PrototypeSequence& operator=(const PrototypeSequence&) = delete;

  [[nodiscard]] const Prototypes& prototypes() const { return prototypes_; }
  [[nodiscard]] const std::optional<PrototypeSequenceMetadata>& metadata() const { return metadata_; }
  /// The built-in function that the phrase calls, if it calls one.
  [[nodiscard]] std::optional<FunctionIdentifier> functionIdentifier() const {
    if (!metadata_) return std::nullopt;
    const auto* function = std::get_if<Function>(&*metadata_);
    return function != nullptr ? std::optional(function->identifier) : std::nullopt;
  }

 private:
  Prototypes prototypes_;
  std::optional<PrototypeSequenceMetadata> metadata_;
};

}  // namespace tavrine
