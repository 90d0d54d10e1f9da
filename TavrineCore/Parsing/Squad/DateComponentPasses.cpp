// Dates and times: from the words and digits of a line to moments.

#include <cstddef>

#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Squad/DateComponentsToDatestampTransformer.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"

namespace tavrine {

bool Parser::shouldAttemptAmbiguousDateParsingIn(const TokenList& tokenList) {
  if (!tokenList.typePrecheck(TokenType::unit)) return false;
  std::size_t firstBehindLabel = 0;
  if (tokenList.typePrecheck(TokenType::label)) {
    for (std::size_t i = 0; i < tokenList.count() && firstBehindLabel == 0; ++i) {
      if (tokenList[i].is(TokenType::label)) firstBehindLabel = i + 1;
    }
  }
  for (std::size_t i = firstBehindLabel; i < tokenList.count(); ++i) {
    if (!isDurationUnit(&tokenList[i])) continue;
    const Token* before = tokenList.tokenBefore(i, /*ignoreWhitespace=*/true);
    if (before == nullptr || !before->is(TokenType::operator_)) return true;
  }
  return false;
}

void DateParser::transformComponentsIntoDatesIn(TokenList& tokenList) const {
  constexpr int kMaximumRounds = 200;
  std::size_t end = tokenList.count();
  for (int round = 0; round < kMaximumRounds; ++round) {
    // What was behind the last date has no pieces left.
    while (end > 0 && !tokenList[end - 1].is(TokenType::dateComponents)) --end;
    if (end == 0) return;
    DateComponentsToDatestampTransformer(engineCustomization_, tokenList, end - 1).transform();
    end = std::min(end, tokenList.count());
  }
}

namespace passes {

namespace {

DateParser dateParserFor(const TokenList& list, const PassContext& context) {
  const bool identifyAmbiguousDates =
      context.features.seeksFutureDate ||
      (!list.typePrecheck(TokenType::equals) && Parser::shouldAttemptAmbiguousDateParsingIn(list));
  return DateParser(context.customization, {.identifyAmbiguousDates = identifyAmbiguousDates,
                                            .identifyMilitaryTimestamps = true,
                                            .localeMetadata = &context.content.localeMetadata});
}

}  // namespace

void identifyDateComponentsIn(TokenList& list, const PassContext& context) {
  dateParserFor(list, context).identifyDateComponentsIn(list);
}

// The pieces have been read: the options have no say any more.

void transformComponentsIntoIsoDatesIn(TokenList& list, const PassContext& context) {
  DateParser(context.customization, DateParsingOptions()).transformComponentsIntoIsoDatesIn(list);
}

void transformComponentsIntoDatesIn(TokenList& list, const PassContext& context) {
  DateParser(context.customization, DateParsingOptions()).transformComponentsIntoDatesIn(list);
}

}  // namespace passes

}  // namespace tavrine
