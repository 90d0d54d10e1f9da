#include "TavrineCore/Parsing/Prototypes/InternalParsingSequences.h"

#include <initializer_list>
#include <string_view>

#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceGenerator.h"

namespace tavrine {

namespace {

std::vector<PrototypeSequenceRef> sequencesOf(std::initializer_list<std::string_view> strings) {
  std::vector<PrototypeSequenceRef> sequences;
  for (const std::string_view string : strings) {
    sequences.push_back(PrototypeSequenceGenerator::sequenceFor(
        string, PrototypeSequenceGenerator::NumberInterpretationMode::typedNumber));
  }
  return sequences;
}

}  // namespace

const InternalParsingSequences& InternalParsingSequences::shared() {
  static const InternalParsingSequences sequences{
      .unitExpressionSequences = sequencesOf({"30 __unit", "__unit 30", "30__unit"}),
      .percentagesSequences = sequencesOf({"10%", "10 %"}),
      .laptimeSequences = sequencesOf({"3:45:32.431"}),
      .frametimeSequences = sequencesOf({"3:45:32:15"}),
      .slashAndDashDateSequences = sequencesOf({"01-02-20"}),
  };
  return sequences;
}

}  // namespace tavrine
