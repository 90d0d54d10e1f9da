#include <gtest/gtest.h>

#include "Foundation/Json.h"
#include "Foundation/JsonEvents.h"
#include "Tests/Support/Table.h"

namespace tavrine::foundation {
namespace {

using testing::rowsOf;

std::string repeated(std::string_view text, std::size_t times) {
  std::string result;
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

TEST(Json, KeepsDigitsOrderAndKinds) {
  // Each comes back as it was written: no digit lost, no member moved, "5" no number.
  for (const std::string_view text : {
           R"({"z":1.00,"a":[12345678901234567890123456789012345678,-0,1E+2],"m":{}})",
           R"(["5",5,true,false,null,[],"é😀\n\"\\"])",
           R"("\u0000/")",
           "0.1",
       }) {
    const JsonParseResult result = Json::parse(text);
    ASSERT_TRUE(result) << text << ": " << result.error;
    EXPECT_EQ(result.value->compact(), text);
  }
}

TEST(Json, RefusesWhatIsNoJson) {
  struct Case {
    std::string_view text;
    std::size_t offset;
  };
  for (const Case& c : rowsOf<Case>("Foundation/JsonTests", "RefusesWhatIsNoJson")) {
    const JsonParseResult result = Json::parse(c.text);
    EXPECT_FALSE(result) << c.text;
    EXPECT_FALSE(result.error.empty()) << c.text;
    EXPECT_NEAR(static_cast<double>(result.errorOffset), static_cast<double>(c.offset), 1) << c.text;
  }
}

/// Writes down what it is told.
class Recorder final : public JsonEventHandler {
 public:
  explicit Recorder(std::string_view text) : text_(text) {}

  void objectBegins(std::size_t at) override { record(text_.substr(at, 1)); }
  void objectEnds(std::size_t at) override { record(text_.substr(at - 1, 1)); }
  void arrayBegins() override { record("["); }
  void arrayEnds() override { record("]"); }
  void key(std::string_view name) override { record(std::string(name) + ":"); }
  void string(std::string_view value, std::size_t end) override {
    record("'" + std::string(value) + "'");
    EXPECT_EQ(text_[end - 1], '"');
  }
  void number(std::string_view digits) override { record(digits); }
  void literal(bool isNull) override { record(isNull ? "null" : "truth"); }

  [[nodiscard]] const std::string& events() const { return events_; }

 private:
  void record(std::string_view event) { events_.append(events_.empty() ? "" : " ").append(event); }

  std::string_view text_;
  std::string events_;
};

TEST(JsonEvents, ComeInTheOrderOfTheText) {
  struct Case {
    std::string_view text, want;
  };
  for (const Case& c : rowsOf<Case>("Foundation/JsonTests", "ComeInTheOrderOfTheText")) {
    Recorder recorder(c.text);
    EXPECT_EQ(readJsonEvents(c.text, recorder), "") << c.text;
    EXPECT_EQ(recorder.events(), c.want) << c.text;
  }
}

TEST(JsonEvents, RefuseWhatTheReaderOfValuesRefuses) {
  const std::string_view texts[] = {"",
                                    "[1,]",
                                    "{\"a\":}",
                                    "{\"a\" 1}",
                                    "{\"a\":1,}",
                                    "{\"a\":1]",
                                    "[1] x",
                                    "[}",
                                    "01",
                                    "1.",
                                    "-",
                                    "+1",
                                    "1e",
                                    "1e400",
                                    "nul",
                                    "{a:1}",
                                    "\"\\ud800\"",
                                    "\"\\ud800\\u0041\"",
                                    "\"\\udc00\"",
                                    "\"\\u12g4\"",
                                    "\"\\x\"",
                                    "\"a\nb\"",
                                    "\"a longer text\nof two lines\"",
                                    "\"open",
                                    "[\"a\"",
                                    {"[1]\0", 4}};
  for (const std::string_view text : texts) {
    Recorder recorder(text);
    EXPECT_NE(readJsonEvents(text, recorder), "") << text;
    EXPECT_FALSE(Json::parse(text)) << text;
  }
  const std::string whole = R"([{"key":"a \u00e9 text","n":-1.5e3},[null,true]])";
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::string cut = whole.substr(0, size);
    Recorder recorder(cut);
    EXPECT_NE(readJsonEvents(cut, recorder), "") << cut;
  }
}

TEST(Json, DepthIsBounded) {
  const auto nested = [](std::size_t depth) { return repeated("[", depth) + repeated("]", depth); };
  EXPECT_TRUE(Json::parse(nested(Json::kMaximumDepth)));
  EXPECT_FALSE(Json::parse(nested(Json::kMaximumDepth + 1)));
  EXPECT_FALSE(Json::parse(repeated("{\"a\":", 1000000)));
  EXPECT_FALSE(Json::parse(repeated("[", 1000000)));
}

TEST(Json, TheLastOfEqualKeysCounts) {
  EXPECT_EQ(Json::parse(R"({"a":1,"b":2,"a":3})").value->compact(), R"({"a":3,"b":2})");
  // The same in an object so large that its members are indexed, and without walking them each time.
  std::string text = "{";
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 50000; ++i) text += "\"k" + std::to_string(i) + "\":" + std::to_string(i + round) + ",";
  }
  text.back() = '}';
  const JsonParseResult result = Json::parse(text);
  ASSERT_TRUE(result) << result.error;
  ASSERT_EQ(result.value->asObject()->size(), 50000U);
  EXPECT_EQ(result.value->find("k0")->asInteger(), 1);
  EXPECT_EQ(result.value->asObject()->back().value.asInteger(), 50000);
}

TEST(Json, AccessorsAnswerOnlyForTheirKind) {
  const Json json = *Json::parse(R"({"i":42,"d":1.5,"big":9223372036854775808,"s":"42","t":true})").value;
  EXPECT_EQ(json.find("i")->asInteger(), 42);
  EXPECT_EQ(json.find("d")->asInteger(), std::nullopt);
  EXPECT_EQ(json.find("d")->asDouble(), 1.5);
  EXPECT_EQ(json.find("big")->asInteger(), std::nullopt);
  EXPECT_EQ(json.find("s")->asInteger(), std::nullopt);
  EXPECT_EQ(json.find("s")->asBoolean(), std::nullopt);
  EXPECT_EQ(json.find("t")->asBoolean(), true);
  EXPECT_EQ(json.find("none"), nullptr);
  EXPECT_EQ(Json().find("i"), nullptr);
}

TEST(Json, BuildsAndWrites) {
  Json json;
  json.set("name", Json::string("a\xFF"));
  json.set("value", Json::number("1.10"));
  json.set("bad", Json::number("1.1.0"));
  Json list;
  list.append(Json::integer(-7));
  json.set("list", std::move(list));
  json.set("none", Json::array());
  json.set("name", Json::string("b\xFF"));
  EXPECT_EQ(json.compact(), R"({"name":"b�","value":1.10,"bad":null,"list":[-7],"none":[]})");
  EXPECT_EQ(json.pretty(), R"({
  "name": "b�",
  "value": 1.10,
  "bad": null,
  "list": [
    -7
  ],
  "none": []
})");
  EXPECT_EQ(*Json::parse(json.pretty()).value, *Json::parse(json.compact()).value);
}

}  // namespace
}  // namespace tavrine::foundation
