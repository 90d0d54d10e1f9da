#include "TavrineCore/Evaluation/Processors/Preprocessors.h"

#include "TavrineCore/Evaluation/Processors/GeneralPostProcessor.h"

namespace tavrine {

void preprocess(EditableTokenList& list, const EngineCustomization& customization) {
  VariablesAndSubsheetsPostProcessor(customization).process(list);
  CommentsPostProcessor(customization).process(list);
  GeneralPostProcessor(customization).process(list);
}

}  // namespace tavrine
