#include "Foundation/JsonEvents.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

namespace tavrine::foundation {

namespace {

class Forwarder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Forwarder> {
 public:
  Forwarder(const rapidjson::MemoryStream& stream, JsonEventHandler& handler) : stream_(stream), handler_(handler) {}

  bool Null() {
    handler_.literal(/*isNull=*/true);
    return true;
  }
  bool Bool(bool) {
    handler_.literal(/*isNull=*/false);
    return true;
  }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    handler_.number({text, size});
    return true;
  }
  bool StartArray() {
    handler_.arrayBegins();
    return true;
  }
  bool EndArray(rapidjson::SizeType) {
    handler_.arrayEnds();
    return true;
  }
  // The iterative reader tells of a bracket before it takes it.
  bool StartObject() {
    handler_.objectBegins(stream_.Tell());
    return true;
  }
  bool EndObject(rapidjson::SizeType) {
    handler_.objectEnds(stream_.Tell() + 1);
    return true;
  }
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    handler_.key({text, size});
    return true;
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    handler_.string({text, size}, stream_.Tell());
    return true;
  }

 private:
  const rapidjson::MemoryStream& stream_;
  JsonEventHandler& handler_;
};

}  // namespace

std::string readJsonEvents(std::string_view text, JsonEventHandler& handler) {
  rapidjson::MemoryStream stream(text.data(), text.size());
  Forwarder forwarder(stream, handler);
  rapidjson::Reader reader;
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
  const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, forwarder);
  if (!result.IsError()) return {};
  return std::string(rapidjson::GetParseError_En(result.Code())) + " at byte " + std::to_string(result.Offset());
}

}  // namespace tavrine::foundation
