#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Environment.h"
#include "Foundation/RandomSource.h"
#include "TavrineCore/Customization/Variables/SingleCharacterUIDGenerator.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using Type = Variable::VariableType;

std::shared_ptr<const EvaluationResult> boxed(const EvaluationResult& result) {
  return std::make_shared<const EvaluationResult>(result);
}

Variable variable(std::string name, std::optional<std::string> value = std::nullopt, Type type = Type::local) {
  return {std::move(name), std::move(value), type};
}

Variable phrase(std::string name) {
  Variable result = variable(std::move(name));
  result.isPhrase = true;
  return result;
}

Variable defined(std::string name, std::optional<std::string> value, const EvaluationResult& definition) {
  Variable result = variable(std::move(name), std::move(value));
  result.definition = boxed(definition);
  return result;
}

std::vector<std::string> names(const std::vector<Variable>& variables) {
  std::vector<std::string> result;
  for (const Variable& each : variables) result.push_back(each.name);
  return result;
}

using Names = std::vector<std::string>;

TEST(VariableTest, DefinitionsDecideThenValues) {
  const EvaluationResult pending = EvaluationResult::pending();
  const EvaluationResult failed = EvaluationResult::failed();

  EXPECT_EQ(variable("a", "1"), variable("a", "1", Type::tag));
  EXPECT_NE(variable("a", "1"), variable("b", "1"));
  EXPECT_NE(variable("a", "1"), variable("a", "2"));
  EXPECT_NE(variable("a", "1"), variable("a"));
  EXPECT_EQ(variable("a"), variable("a"));

  // With definitions on both sides the texts don't count, in the hash neither.
  EXPECT_EQ(defined("a", "1", pending), defined("a", "2", pending));
  EXPECT_EQ(defined("a", "1", pending).hash(), defined("a", "2", pending).hash());
  EXPECT_NE(defined("a", "1", pending), defined("a", "1", failed));
  EXPECT_NE(defined("a", "1", pending), variable("a", "1"));
}

TEST(VariableListTest, LongerNamesComeBeforeTheirBeginnings) {
  VariableList list({variable("a"), variable("ab"), variable("b"), variable("é"), variable("")});
  EXPECT_EQ(names(list.allVariables()), (Names{"é", "b", "ab", "a", ""}));
}

TEST(VariableListTest, StoringReplacesAndClearingRemoves) {
  VariableList list;
  EXPECT_TRUE(list.isEmpty());
  list.setVariable(variable("x", "1"));
  list.setVariable(variable("x", "2"));
  ASSERT_EQ(list.count(), 1u);
  EXPECT_EQ(list.find("x")->value, "2");
  EXPECT_EQ(list.find("y"), nullptr);

  list.clearVariable("y");
  EXPECT_EQ(list.count(), 1u);
  // The name may come from the list itself.
  list.clearVariable(list.find("x")->name);
  EXPECT_TRUE(list.isEmpty());
  EXPECT_EQ(list.find("x"), nullptr);

  // A copy of a stored variable goes back in.
  list.setVariable(variable("x", "1"));
  list.setVariable(*list.find("x"));
  EXPECT_EQ(list.find("x")->value, "1");
}

TEST(VariableListTest, WordsAndPhrasesAreApart) {
  VariableList list({variable("rent"), phrase("gross income"), phrase("net income"), phrase("net income of 2024"),
                     variable("\uE001", std::nullopt, Type::lineReference),
                     variable("#food", std::nullopt, Type::tag)});
  EXPECT_EQ(list.count(), 6u);
  EXPECT_EQ(names(list.singleWordVariables()), (Names{"rent", "#food"}));
  EXPECT_EQ(names(list.multiWordVariables(true)), (Names{"net income of 2024", "gross income", "net income"}));
  EXPECT_EQ(list.multiWordVariables(false).size(), 3u);
  EXPECT_EQ(names(list.variablesExludingLineReferences()),
            (Names{"rent", "net income of 2024", "net income", "gross income"}));

  // Length counts characters, not bytes: "ää ää" is the shorter of the two.
  VariableList accents({phrase("ää ää"), phrase("abc abc")});
  EXPECT_EQ(names(accents.multiWordVariables(true)), (Names{"abc abc", "ää ää"}));

  // A name that changes its kind is in one set alone, and in none once cleared.
  list.setVariable(variable("net income"));
  EXPECT_EQ(names(list.multiWordVariables(true)), (Names{"net income of 2024", "gross income"}));
  list.setVariable(phrase("net income"));
  EXPECT_EQ(names(list.singleWordVariables()), (Names{"rent", "#food"}));
  for (const std::string_view name : {"net income", "gross income", "net income of 2024"}) list.clearVariable(name);
  EXPECT_FALSE(list.hasMultiWordVariables());
  EXPECT_TRUE(list.multiWordVariables(true).empty());
}

TEST(VariableListTest, PhrasesAreFoundByWhatATextBeginsWith) {
  VariableList list({variable("net"), phrase("net income"), phrase("Net  Income"), phrase("net income of 2024"),
                     phrase("net incomes"), phrase("income tax"), phrase("ΟΔΟΣ α"), phrase("")});
  const auto found = [&list](std::string_view text) {
    Names result;
    list.forEachPhraseAtStartOf(VariableList::phraseKey(text), [&](const std::shared_ptr<const Variable>& variable) {
      result.push_back(variable->name);
    });
    return result;
  };
  EXPECT_EQ(found("NET \t income of 2025"), (Names{"net income", "Net  Income"}));
  EXPECT_EQ(found("net income of 2024 + 1"), (Names{"net income of 2024", "net income", "Net  Income"}));
  EXPECT_EQ(found("οδος α"), Names{"ΟΔΟΣ α"});
  for (const std::string_view text : {"", "n", "net", "net incom", "zzz", "a", "the net income"}) {
    EXPECT_EQ(found(text), Names{}) << text;
  }

  list.clearVariable("net income");
  list.setVariable(variable("net income of 2024"));
  EXPECT_EQ(found("net income of 2024"), Names{"Net  Income"});
}

TEST(VariableListTest, CopiesGoTheirOwnWay) {
  VariableList list({variable("a", "1"), phrase("b c")});
  const std::shared_ptr<VariableList> copy = list.copy();
  EXPECT_EQ(*copy, list);
  EXPECT_EQ(copy->hash(), list.hash());
  EXPECT_TRUE(copy->hasMultiWordVariables());

  list.setVariable(variable("a", "2"));
  EXPECT_EQ(copy->find("a")->value, "1");
  EXPECT_NE(*copy, list);
  list.setVariable(variable("a", "1"));
  EXPECT_EQ(*copy, list);
  list.clearVariable("a");
  EXPECT_NE(*copy, list);
}

TEST(VariableListTest, DefinitionsAreProvidedForTextsAlone) {
  EXPECT_TRUE(VariableList().isFullyDefined());

  VariableList list({variable("text", "1 + 1"), defined("done", "3", EvaluationResult::failed()), variable("bare")});
  EXPECT_FALSE(list.isFullyDefined());
  Names asked;
  list.provideDefinitionsForValuesWith([&](const std::string& value) {
    asked.push_back(value);
    // What the block calculates may look up the other variables.
    EXPECT_EQ(list.count(), 3u);
    return boxed(EvaluationResult::pending());
  });
  EXPECT_EQ(asked, Names{"1 + 1"});
  EXPECT_TRUE(list.find("text")->definition->is(EvaluationResultCase::pending));
  EXPECT_TRUE(list.find("done")->definition->is(EvaluationResultCase::failed));
  EXPECT_EQ(list.find("bare")->definition, nullptr);
  EXPECT_FALSE(list.isFullyDefined());
  list.clearVariable("bare");
  EXPECT_TRUE(list.isFullyDefined());
}

TEST(SingleCharacterUIDGeneratorTest, TellsUIDsFromOtherText) {
  EXPECT_TRUE(SingleCharacterUIDGenerator::isUID("\uE000"));
  EXPECT_TRUE(SingleCharacterUIDGenerator::isUID("\uF800"));
  EXPECT_TRUE(SingleCharacterUIDGenerator::isUID("①"));
  EXPECT_TRUE(SingleCharacterUIDGenerator::isUID("㊿"));
  for (const std::string_view text :
       {"", "a", "ab", "\uF801", "\uD7FB", "e\u0301", "\uE000\uE001", "\uE000\u0301", "㉀", "\x80", "🙂"}) {
    EXPECT_FALSE(SingleCharacterUIDGenerator::isUID(text)) << text;
  }
}

TEST(SingleCharacterUIDGeneratorTest, NewUIDsAreRandomUIDs) {
  Environment::Parts parts = Environment::current().parts();
  parts.random = seededRandomSource(7);
  const ScopedEnvironment scope{Environment(parts)};
  std::set<std::string> made;
  for (int i = 0; i < 200; ++i) {
    const std::string uid = SingleCharacterUIDGenerator::newUID();
    EXPECT_TRUE(SingleCharacterUIDGenerator::isUID(uid));
    EXPECT_FALSE(SingleCharacterUIDGenerator::parameterIndexFor(uid));
    made.insert(uid);
  }
  EXPECT_GT(made.size(), 150u);
}

TEST(SingleCharacterUIDGeneratorTest, ParametersAreTheCircledNumbers) {
  struct Case {
    std::size_t index;
    std::string_view symbol;
  };
  for (const Case& c : rowsOf<Case>("Customization/VariableTests", "ParametersAreTheCircledNumbers")) {
    EXPECT_EQ(SingleCharacterUIDGenerator::parameterSymbol(c.index), c.symbol);
    EXPECT_EQ(SingleCharacterUIDGenerator::parameterIndexFor(c.symbol), c.index) << c.symbol;
  }
  for (const std::size_t index : {std::size_t{0}, std::size_t{51}, ~std::size_t{0}}) {
    EXPECT_EQ(SingleCharacterUIDGenerator::parameterSymbol(index), "");
  }
  EXPECT_FALSE(SingleCharacterUIDGenerator::parameterIndexFor("⓪"));
  EXPECT_FALSE(SingleCharacterUIDGenerator::parameterIndexFor("①②"));
}

}  // namespace
}  // namespace tavrine
