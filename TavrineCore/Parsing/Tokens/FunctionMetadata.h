#pragma once

#include <memory>
#include <utility>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"

namespace tavrine {

class PrototypeSequence;

/// A phrase such as "20% of 50", with the function that it calls and the prototype that it matched.
struct WordFunctionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::wordFunction> {
  WordFunctionTokenMetadata(Function called, std::shared_ptr<const PrototypeSequence> matched,
                            EngineCustomization engineCustomization)
      : function(std::move(called)), sequence(std::move(matched)), customization(std::move(engineCustomization)) {}
  Function function;
  std::shared_ptr<const PrototypeSequence> sequence;
  EngineCustomization customization;
};

/// The same for a function of the host's.
struct CustomFunctionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::customFunction> {
  CustomFunctionTokenMetadata(CustomFunction called, std::shared_ptr<const PrototypeSequence> matched,
                              EngineCustomization engineCustomization)
      : customFunction(std::move(called)),
        sequence(std::move(matched)),
        customization(std::move(engineCustomization)) {}
  CustomFunction customFunction;
  std::shared_ptr<const PrototypeSequence> sequence;
  EngineCustomization customization;
};

/// The name of a function that the host implements.
struct JavascriptFunctionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::javascriptFunction> {
  explicit JavascriptFunctionTokenMetadata(TraditionalFunction called) : function(std::move(called)) {}
  TraditionalFunction function;
};

/// A symbol of a type that a custom function brought along.
struct CustomTypeTokenMetadata final : TokenMetadataOf<TokenMetadataKind::customType> {
  explicit CustomTypeTokenMetadata(CustomType type) : customType(std::move(type)) {}
  CustomType customType;
};

}  // namespace tavrine
