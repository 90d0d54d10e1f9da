#include <optional>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Parsing/Helpers/Deidentifier.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Parsing/LineReader.h"

namespace tavrine::testing {
namespace {

TEST(Deidentifier, TurnsWhatNothingUsedIntoWords) {
  const LineReader reader;
  struct Case {
    std::string_view line, want;
  };
  for (const Case& c : {
           // A word right behind a number takes it along, unless it begins with punctuation or beyond ASCII.
           Case{"5abc", "wordComment wordComment"},
           {"5 abc", "number.wordComment"},
           {"5é", "number wordComment"},
           {"foo-5", "wordComment wordComment[wordComment wordComment]"},
           {"foo - 5", "wordComment.operator.number"},
           // Operators.
           {"+", "wordComment"},
           {"+ 5", "operator.number"},
           {"plus 5", "operator.number"},
           {"mod 5", "wordComment.number"},
           {"word mod 5", "wordComment.wordComment.number"},
           {"6 mod 5", "number.operator.number"},
           {"bed & 5", "wordComment.wordComment.number"},
           {"6 & 5", "number.operator.number"},
           // Words that wait for a partner.
           {"5 in the as", "number.wordComment.wordComment.wordComment"},
           {"5 of 6 and 7", "number.wordComment.number.wordComment.number"},
           {"hex then total 5?", "wordComment.wordComment.wordComment.number wordComment"},
           {"total 1", "wordComment.number"},
           {"1/2", "number operator number"},
           {"√9", "operator number"},
           {"(in)", "subexpression[bracket wordComment bracket]"},
       }) {
    EXPECT_EQ(reader.shape(c.line), c.want) << c.line;
  }
  const LineReader keeping([](EngineFeatureFlags& flags) { flags.preserveAllParsedTokenTypes = true; });
  EXPECT_EQ(keeping.shape("in hex and"), "converterSymbol.typeName.conjunctionWord");
  const LineReader planning([](EngineFeatureFlags& flags) { flags.additionalOptions.tripPlanning = true; });
  EXPECT_EQ(planning.shape("5 of in"), "number.prepositionWord.wordComment");
}

TEST(Deidentifier, LeavesReferencesToLinesAlone) {
  LineReader reader;
  reader.declare("①", EvaluationResult::decimal(Decimal(5)), Variable::VariableType::lineReference);
  EXPECT_EQ(reader.shape("① = 5"), "variable.wordComment.wordComment");
}

/// The rules for tokens that lines come to by way of units and dates.
class DeidentifierRules : public ::testing::Test {
 protected:
  static Token token(TokenType type, std::string text, TokenSubType subType = TokenSubType::notSpecified,
                     TokenMetadataRef metadata = nullptr) {
    return Token(type, subType, std::move(text), NSRange::zero, nullptr, std::move(metadata));
  }
  static Token over(TokenType type, std::vector<Token> tokens, TokenMetadataRef metadata = nullptr) {
    return TokenSlice{std::move(tokens), 0, 0}.embedInContainerToken(type, TokenSubType::notSpecified,
                                                                     std::move(metadata));
  }
  static Token date(DatestampType type, bool isAmbiguous, std::string text) {
    const Datestamp stamp{.date = Date(), .type = type, .timezone = TimeZone::current(), .isAmbiguous = isAmbiguous};
    return token(
        TokenType::datestamp, std::move(text), TokenSubType::notSpecified,
        std::make_shared<const DatestampTokenMetadata>(stamp, Date(), CalendarEnvironment(Calendar::current())));
  }
  static Token hours(std::int64_t count) {
    Timespan span;
    span.dateComponents.hour = count;
    return token(TokenType::timespan, "h", TokenSubType::notSpecified,
                 std::make_shared<const TimespanTokenMetadata>(span));
  }

  std::string cleaned(std::vector<Token> tokens) const {
    TokenList list = TokenList(std::move(tokens)).listWithRecalculatedTokenRanges(0, false);
    const std::string text = list.rebuiltExpression();
    Deidentifier(reader.parser().engineCustomization(), list, reader.variables).deidentifyStragglers();
    EXPECT_EQ(list.rebuiltExpression(), text);
    EXPECT_EQ(shapeOf(list), shapeOf(list.listWithRecalculatedTokenRanges(0, false)));
    return shapeOf(list);
  }

  const LineReader reader;
  const Token blank = token(TokenType::whitespace, " ");
  const Token km = token(TokenType::unit, "km");
  const Token word = token(TokenType::wordComment, "word");
  const Token five = token(TokenType::number, "5", TokenSubType::positiveNumber);
  const Token amount = token(TokenType::unitExpression, "5m");
  const Token plus = token(TokenType::operator_, "+", TokenSubType::additionOperator);
  const Token times = token(TokenType::operator_, "*", TokenSubType::multiplicationOperator);
};

TEST_F(DeidentifierRules, UnitsNeedAPartner) {
  EXPECT_EQ(cleaned({km}), "wordComment");
  EXPECT_EQ(cleaned({km, five}), "wordComment wordComment");
  EXPECT_EQ(cleaned({amount, blank, km}), "unitExpression.unit");
  EXPECT_EQ(cleaned({amount, blank, word, blank, km}), "unitExpression.wordComment.wordComment");
  EXPECT_EQ(cleaned({five, blank, times, blank, km}), "number.operator.unit");
  EXPECT_EQ(cleaned({five, blank, plus, blank, km}), "number.operator.wordComment");
  EXPECT_EQ(cleaned({over(TokenType::functionExpression, {five}), blank, km}), "functionExpression[number].unit");
  EXPECT_EQ(cleaned({over(TokenType::converter, {km}), blank, word}), "wordComment.wordComment");
  EXPECT_EQ(cleaned({five, blank, over(TokenType::converter, {km})}), "number.converter[unit]");
  EXPECT_EQ(cleaned({amount, blank, token(TokenType::substance, "milk")}), "unitExpression.substance");
  EXPECT_EQ(cleaned({amount, blank, token(TokenType::substance, "milk"), blank, word}),
            "unitExpression.wordComment.wordComment");
}

TEST_F(DeidentifierRules, DatesNeedTheirNeighbours) {
  const Token today = date(DatestampType::today, false, "today");
  EXPECT_EQ(cleaned({today}), "datestamp");
  EXPECT_EQ(cleaned({word, blank, today}), "wordComment.wordComment");
  EXPECT_EQ(cleaned({word, blank, today, blank, plus, blank, hours(3)}), "wordComment.datestamp.operator.timespan");

  const Token slashed = date(DatestampType::dayMonthYear, true, "3/4");
  EXPECT_EQ(cleaned({word, blank, slashed}), "wordComment.number operator number");
  EXPECT_EQ(cleaned({slashed, blank, plus, blank, hours(23)}), "number operator number.operator.timespan");
  EXPECT_EQ(cleaned({slashed, blank, plus, blank, hours(24)}), "datestamp.operator.timespan");
  const Token day = TokenFactory::unitExpressionWith(1, unitOf(UnitIdentifier::days));
  EXPECT_EQ(cleaned({slashed, blank, plus, blank, over(TokenType::unitExpression, {five, km}, day.metadata)}),
            "datestamp.operator.unitExpression[number unit]");

  const Token year = date(DatestampType::nakedYear, true, "2024");
  EXPECT_EQ(cleaned({year, blank, plus, blank, five}), "number.operator.number");
  EXPECT_EQ(cleaned({word, blank, year}), "wordComment.datestamp");
  EXPECT_EQ(cleaned({year, blank, amount}), "datestamp.unitExpression");

  const Token zone = token(TokenType::timezone, "CET");
  EXPECT_EQ(cleaned({zone}), "wordComment");
  EXPECT_EQ(cleaned({over(TokenType::datestamp, {five, blank, zone})}), "datestamp[number.timezone]");
  const Token assignment = token(TokenType::variableAssignmentOperator, "=");
  EXPECT_EQ(cleaned({over(TokenType::variableDeclaration, {assignment, blank, zone, blank, zone})}),
            "variableDeclaration[variableAssignmentOperator.timezone.wordComment]");
}

TEST_F(DeidentifierRules, SomeComeApart) {
  const Token comma = token(TokenType::comma, ",");
  EXPECT_EQ(cleaned({over(TokenType::list, {five, comma, blank, five})}), "number wordComment.number");
  EXPECT_EQ(cleaned({over(TokenType::functionExpression, {over(TokenType::list, {five, comma, five})})}),
            "functionExpression[list[number wordComment number]]");
  const Token plusFive = over(TokenType::iso8601, {five, blank, over(TokenType::datestamp, {plus, five})});
  EXPECT_EQ(cleaned({plusFive}), "iso8601[wordComment.wordComment wordComment]");
  const Token suffix = token(TokenType::ordinalSuffix, "th");
  EXPECT_EQ(cleaned({five, suffix}), "wordComment wordComment");
  EXPECT_EQ(cleaned({five, blank, suffix}), "number.wordComment");
  const Token pitch = token(TokenType::pitch, "A3");
  EXPECT_EQ(cleaned({pitch, blank, five}), "wordComment.number");
  EXPECT_EQ(cleaned({pitch, blank, over(TokenType::converter, {five})}), "pitch.converter[number]");
}

}  // namespace
}  // namespace tavrine::testing
