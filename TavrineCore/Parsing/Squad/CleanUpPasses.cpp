#include "TavrineCore/Parsing/Helpers/Deidentifier.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"

namespace tavrine::passes {

void deidentifyStragglers(TokenList& list, const PassContext& context) {
  Deidentifier(context.customization, list, context.variables).deidentifyStragglers();
}

}  // namespace tavrine::passes
