#include "TavrineCore/Customization/Engine/FlatRows.h"

#include <algorithm>
#include <cstddef>

#include "Foundation/JsonEvents.h"

namespace tavrine {

namespace {

// How deep in brackets things stand.
constexpr int kTop = 0;
constexpr int kElements = 1;
constexpr int kMembers = 2;
constexpr int kStrings = 3;

class FlatRowReader final : public JsonEventHandler {
 public:
  explicit FlatRowReader(FunctionRef<bool(FlatRow&)> take) : take_(take) {}

  void arrayBegins() override {
    if (depth_ == kTop) isArray_ = true;
    if (depth_ == kElements) spoil();
    if (depth_ == kMembers) value(FlatMember::Kind::strings);
    if (depth_ >= kStrings) spoilMember();
    ++depth_;
  }
  void arrayEnds() override { --depth_; }
  void objectBegins(std::size_t) override {
    if (depth_ == kElements) row_.members.clear();
    if (depth_ >= kStrings) spoilMember();
    ++depth_;
  }
  void objectEnds(std::size_t) override {
    --depth_;
    if (depth_ != kElements || !isArray_ || isSpoilt_) return;
    if (take_(row_)) {
      ++count_;
    } else {
      spoil();
    }
  }
  void key(std::string_view name) override {
    if (depth_ == kMembers) row_.members.push_back({std::string(name), FlatMember::Kind::other, {}});
  }
  void string(std::string_view text, std::size_t) override {
    if (depth_ == kStrings) {
      if (FlatMember* const member = last(); member != nullptr) member->texts.emplace_back(text);
    } else {
      value(FlatMember::Kind::string, text);
    }
  }
  void number(std::string_view digits) override {
    if (depth_ == kStrings) spoilMember();
    value(FlatMember::Kind::number, digits);
  }
  void literal(bool isNull) override {
    if (depth_ == kStrings) spoilMember();
    value(isNull ? FlatMember::Kind::null : FlatMember::Kind::other);
  }

  [[nodiscard]] std::string error() const {
    if (!isArray_) return "no array";
    return isSpoilt_ ? "entry " + std::to_string(count_) + " is no good" : std::string();
  }

 private:
  [[nodiscard]] FlatMember* last() { return row_.members.empty() ? nullptr : &row_.members.back(); }
  void spoil() { isSpoilt_ = true; }
  void spoilMember() {
    if (FlatMember* const member = last()) member->kind = FlatMember::Kind::other;
  }
  void value(FlatMember::Kind kind, std::string_view text = {}) {
    if (depth_ == kElements) spoil();
    FlatMember* const member = depth_ == kMembers ? last() : nullptr;
    if (member == nullptr) return;
    member->kind = kind;
    if (!text.empty() || kind == FlatMember::Kind::string) member->texts.emplace_back(text);
  }

  FunctionRef<bool(FlatRow&)> take_;
  FlatRow row_;
  int depth_ = kTop;
  std::size_t count_ = 0;
  bool isArray_ = false;
  bool isSpoilt_ = false;
};

}  // namespace

FlatMember* FlatRow::find(std::string_view key, FlatMember::Kind kind) {
  const auto found = std::find_if(members.begin(), members.end(),
                                  [&](const FlatMember& member) { return member.key == key && member.kind == kind; });
  return found == members.end() ? nullptr : &*found;
}

const FlatMember* FlatRow::find(std::string_view key) const {
  const auto found =
      std::find_if(members.begin(), members.end(), [key](const FlatMember& member) { return member.key == key; });
  return found == members.end() ? nullptr : &*found;
}

std::string* FlatRow::stringOf(std::string_view key) {
  FlatMember* const member = find(key, FlatMember::Kind::string);
  return member == nullptr ? nullptr : &member->texts.front();
}

std::vector<std::string>* FlatRow::stringsOf(std::string_view key) {
  FlatMember* const member = find(key, FlatMember::Kind::strings);
  return member == nullptr ? nullptr : &member->texts;
}

std::string readFlatRows(std::string_view bytes, FunctionRef<bool(FlatRow&)> take) {
  FlatRowReader reader(take);
  std::string error = readJsonEvents(bytes, reader);
  return error.empty() ? reader.error() : error;
}

}  // namespace tavrine
