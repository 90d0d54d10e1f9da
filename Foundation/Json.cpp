#include "Foundation/Json.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <charconv>
#include <memory>
#include <system_error>
#include <unordered_map>

#include "Foundation/Text.h"

namespace tavrine::foundation {

namespace {

/// Builds a value from the events of the reader. The open arrays and objects stand on a stack of our own, so the depth
/// of a text costs memory and no stack.
class Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
 public:
  bool Null() { return add(Json()); }
  bool Bool(bool value) { return add(Json::boolean(value)); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    return add(Json::number(std::string_view(text, size)));
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    return isText({text, size}) && add(Json::string(std::string(text, size)));
  }
  bool StartArray() { return open(Json::array()); }
  bool EndArray(rapidjson::SizeType) { return close(); }
  bool StartObject() { return open(Json::object()); }
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    if (!isText({text, size})) return false;
    open_.back().key.assign(text, size);
    return true;
  }
  bool EndObject(rapidjson::SizeType) { return close(); }

  [[nodiscard]] Json takeRoot() { return std::move(root_); }
  /// Why the builder ended the reading; empty when it didn't.
  [[nodiscard]] std::string_view refusal() const noexcept { return refusal_; }

 private:
  /// Where the members of an object stand, from a size on at which walking them costs.
  using MemberIndex = std::unordered_map<std::string, std::size_t>;
  struct Open {
    Json value;
    std::string key;  // of the member to come
    std::unique_ptr<MemberIndex> index;
  };
  static constexpr std::size_t kWalkedMembers = 16;

  bool open(Json value) {
    if (open_.size() == Json::kMaximumDepth) {
      refusal_ = "The value is nested too deeply.";
      return false;
    }
    open_.push_back({std::move(value), {}, {}});
    return true;
  }

  /// The reader lets the second half of a surrogate pair pass that is written "\udc00" and has no first half.
  bool isText(std::string_view text) {
    if (isValidUtf8(text)) return true;
    refusal_ = "A string holds half a character.";
    return false;
  }

  bool close() {
    Json value = std::move(open_.back().value);
    open_.pop_back();
    return add(std::move(value));
  }

  bool add(Json value) {
    if (open_.empty()) {
      root_ = std::move(value);
    } else if (Json::Array* const elements = open_.back().value.asArray()) {
      elements->push_back(std::move(value));
    } else {
      addMember(open_.back(), std::move(value));
    }
    return true;
  }

  static void addMember(Open& object, Json value) {
    Json::Object& members = *object.value.asObject();
    if (members.size() < kWalkedMembers) return object.value.set(object.key, std::move(value));
    if (!object.index) {
      object.index = std::make_unique<MemberIndex>();
      for (std::size_t i = 0; i < members.size(); ++i) object.index->emplace(members[i].key, i);
    }
    const auto [known, isNew] = object.index->emplace(object.key, members.size());
    if (isNew) {
      members.push_back({std::move(object.key), std::move(value)});
    } else {
      members[known->second].value = std::move(value);
    }
  }

  std::vector<Open> open_;
  Json root_;
  std::string_view refusal_;
};

bool isJsonNumber(std::string_view text) noexcept {
  const auto skipDigits = [&text] {
    std::size_t count = 0;
    while (count < text.size() && text[count] >= '0' && text[count] <= '9') ++count;
    text.remove_prefix(count);
    return count;
  };
  const auto skip = [&text](std::string_view anyOf) {
    if (text.empty() || anyOf.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
  };
  skip("-");
  if (!skip("0") && skipDigits() == 0) return false;
  if (skip(".") && skipDigits() == 0) return false;
  if (skip("eE")) {
    skip("+-");
    if (skipDigits() == 0) return false;
  }
  return text.empty();
}

template <class Number>
std::optional<Number> readWhole(const std::string& text) noexcept {
  Number value{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return value;
}

template <class Writer>
void writeText(Writer& writer, const std::string& text) {
  // What isn't UTF-8 would end the output in the middle.
  if (isValidUtf8(text)) {
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  } else {
    writeText(writer, sanitizedUtf8(text));
  }
}

template <class Writer>
void write(Writer& writer, const Json& value) {
  switch (value.kind()) {
    case Json::Kind::null:
      writer.Null();
      return;
    case Json::Kind::boolean:
      writer.Bool(*value.asBoolean());
      return;
    case Json::Kind::number: {
      const std::string& text = *value.asNumberText();
      writer.RawValue(text.data(), text.size(), rapidjson::kNumberType);
      return;
    }
    case Json::Kind::string:
      writeText(writer, *value.asString());
      return;
    case Json::Kind::array:
      writer.StartArray();
      for (const Json& element : *value.asArray()) write(writer, element);
      writer.EndArray();
      return;
    case Json::Kind::object:
      writer.StartObject();
      for (const Json::Member& member : *value.asObject()) {
        writeText(writer, member.key);
        write(writer, member.value);
      }
      writer.EndObject();
      return;
  }
}

template <class Writer>
void setUp(Writer&) {}

void setUp(rapidjson::PrettyWriter<rapidjson::StringBuffer>& writer) { writer.SetIndent(' ', 2); }

template <class Writer>
std::string written(const Json& value) {
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  setUp(writer);
  write(writer, value);
  return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace

Json::Json() noexcept = default;
Json::Json(const Json& other) = default;
Json::Json(Json&& other) noexcept = default;
Json& Json::operator=(const Json& other) = default;
Json& Json::operator=(Json&& other) noexcept = default;
Json::~Json() = default;

Json Json::boolean(bool value) {
  Json json;
  json.content_ = value;
  return json;
}

Json Json::number(std::string_view text) {
  Json json;
  if (isJsonNumber(text)) json.content_ = Number{std::string(text)};
  return json;
}

Json Json::integer(std::int64_t value) { return number(std::to_string(value)); }

Json Json::string(std::string value) {
  Json json;
  json.content_ = std::move(value);
  return json;
}

Json Json::array() { return array(Array()); }

Json Json::array(Array elements) {
  Json json;
  json.content_ = std::move(elements);
  return json;
}

Json Json::object() { return object(Object()); }

Json Json::object(Object members) {
  Json json;
  json.content_ = std::move(members);
  return json;
}

JsonParseResult Json::parse(std::string_view text) {
  constexpr unsigned flags =
      rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
  rapidjson::MemoryStream bytes(text.data(), text.size());
  rapidjson::Reader reader;
  Builder builder;
  const rapidjson::ParseResult outcome = reader.Parse<flags>(bytes, builder);
  JsonParseResult result;
  if (outcome.IsError()) {
    result.error = builder.refusal().empty() ? rapidjson::GetParseError_En(outcome.Code()) : builder.refusal();
    result.errorOffset = outcome.Offset();
  } else if (bytes.Tell() < text.size()) {
    // A NUL byte is the end of the text to the reader, and not to us.
    result.error = rapidjson::GetParseError_En(rapidjson::kParseErrorDocumentRootNotSingular);
    result.errorOffset = bytes.Tell();
  } else {
    result.value = builder.takeRoot();
  }
  return result;
}

std::optional<bool> Json::asBoolean() const noexcept {
  if (const bool* const value = std::get_if<bool>(&content_)) return *value;
  return std::nullopt;
}

const std::string* Json::asNumberText() const noexcept {
  const Number* const number = std::get_if<Number>(&content_);
  return number == nullptr ? nullptr : &number->text;
}

std::optional<std::int64_t> Json::asInteger() const noexcept {
  const std::string* const text = asNumberText();
  return text == nullptr ? std::nullopt : readWhole<std::int64_t>(*text);
}

std::optional<double> Json::asDouble() const noexcept {
  const std::string* const text = asNumberText();
  return text == nullptr ? std::nullopt : readWhole<double>(*text);
}

const std::string* Json::asString() const noexcept { return std::get_if<std::string>(&content_); }

const Json::Array* Json::asArray() const noexcept { return std::get_if<Array>(&content_); }

const Json::Object* Json::asObject() const noexcept { return std::get_if<Object>(&content_); }

Json::Array* Json::asArray() noexcept { return std::get_if<Array>(&content_); }

Json::Object* Json::asObject() noexcept { return std::get_if<Object>(&content_); }

const Json* Json::find(std::string_view key) const noexcept {
  const Object* const members = asObject();
  if (members == nullptr) return nullptr;
  for (const Member& member : *members) {
    if (member.key == key) return &member.value;
  }
  return nullptr;
}

void Json::set(std::string_view key, Json value) {
  if (isNull()) content_ = Object();
  Object* const members = asObject();
  if (members == nullptr) return;
  for (Member& member : *members) {
    if (member.key == key) {
      member.value = std::move(value);
      return;
    }
  }
  members->push_back({std::string(key), std::move(value)});
}

void Json::append(Json value) {
  if (isNull()) content_ = Array();
  if (Array* const elements = asArray()) elements->push_back(std::move(value));
}

std::string Json::compact() const { return written<rapidjson::Writer<rapidjson::StringBuffer>>(*this); }

std::string Json::pretty() const { return written<rapidjson::PrettyWriter<rapidjson::StringBuffer>>(*this); }

bool operator==(const Json& left, const Json& right) noexcept { return left.content_ == right.content_; }

bool operator==(const Json::Member& left, const Json::Member& right) noexcept {
  return left.key == right.key && left.value == right.value;
}

}  // namespace tavrine::foundation
