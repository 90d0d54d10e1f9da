#include <gtest/gtest.h>

#include "Foundation/Json.h"

namespace tavrine::foundation {
namespace {

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
  const Case cases[] = {
      {"", 0},
      {"  ", 2},
      {"[1,]", 3},
      {"{\"a\":}", 5},
      {"[1] x", 4},
      {"01", 1},
      {"\"\xC3\"", 1},
      {"[1", 2},
      {"nul", 3},
      {"{a:1}", 1},
      {"1.", 2},
      {"\"\\ud800\"", 1},
      {"[\"\xED\xA0\x80\"]", 2},
      {"-", 1},
      {"+1", 0},
      {"\"a\nb\"", 2},
      {"\"\\udc00\"", 7},
      {"{\"\\udc00\":1}", 8},
      {{"1 \0 2", 5}, 2},
      {{"\"a\"\0", 4}, 3},
  };
  for (const Case& c : cases) {
    const JsonParseResult result = Json::parse(c.text);
    EXPECT_FALSE(result) << c.text;
    EXPECT_FALSE(result.error.empty()) << c.text;
    EXPECT_NEAR(static_cast<double>(result.errorOffset), static_cast<double>(c.offset), 1) << c.text;
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
