#include "TavrineCore/Customization/Engine/FlatRows.h"

#include <algorithm>
#include <deque>
#include <functional>

#include "Foundation/JsonEvents.h"

namespace tavrine {

namespace {

// How deep in brackets things stand, of an array of objects. An object alone stands where an element would.
constexpr int kTop = 0;
constexpr int kElements = 1;
constexpr int kMembers = 2;
constexpr int kStrings = 3;

}  // namespace

class FlatRowReader final : public JsonEventHandler {
 public:
  enum class Root : std::uint8_t { array, object };

  FlatRowReader(std::string_view bytes, Root root, FunctionRef<bool(const FlatRow&)> take)
      : bytes_(bytes), root_(root), take_(take) {}

  void arrayBegins() override {
    if (depth_ == kTop) isInOrder_ = root_ == Root::array;
    if (depth_ == kElements) spoil();
    if (depth_ == kMembers) value(FlatMember::Kind::strings);
    if (depth_ >= kStrings) spoilMember();
    ++depth_;
  }
  void arrayEnds() override { --depth_; }
  void objectBegins(std::size_t) override {
    if (depth_ == kTop && root_ == Root::object) {
      isInOrder_ = true;
      depth_ = kElements;
    }
    if (depth_ == kElements) {
      row_.count_ = 0;
      decoded_.clear();
    }
    if (depth_ >= kStrings) spoilMember();
    ++depth_;
  }
  void objectEnds(std::size_t) override {
    --depth_;
    if (depth_ != kElements || !isInOrder_ || isSpoilt_) return;
    if (take_(row_)) {
      ++count_;
    } else {
      spoil();
    }
  }
  void key(std::string_view name) override {
    if (depth_ != kMembers) return;
    if (row_.count_ == row_.members_.size()) row_.members_.emplace_back();
    FlatMember& member = row_.members_[row_.count_++];
    member.key = kept(name);
    member.kind = FlatMember::Kind::other;
    member.texts.clear();
  }
  void string(std::string_view text, std::size_t) override {
    if (depth_ == kStrings) {
      if (FlatMember* const member = last(); member != nullptr) member->texts.push_back(kept(text));
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
    if (!isInOrder_) return root_ == Root::array ? "no array" : "no object";
    return isSpoilt_ ? "entry " + std::to_string(count_) + " is no good" : std::string();
  }

 private:
  [[nodiscard]] FlatMember* last() { return row_.count_ == 0 ? nullptr : &row_.members_[row_.count_ - 1]; }
  void spoil() { isSpoilt_ = true; }
  void spoilMember() {
    if (FlatMember* const member = last()) member->kind = FlatMember::Kind::other;
  }
  void value(FlatMember::Kind kind, std::string_view text = {}) {
    if (depth_ == kElements) spoil();
    FlatMember* const member = depth_ == kMembers ? last() : nullptr;
    if (member == nullptr) return;
    member->kind = kind;
    if (!text.empty() || kind == FlatMember::Kind::string) member->texts.push_back(kept(text));
  }
  /// What was written with escapes doesn't stand in the file.
  std::string_view kept(std::string_view text) {
    return isPartOf(text, bytes_) ? text : std::string_view(decoded_.emplace_back(text));
  }

  std::string_view bytes_;
  Root root_;
  FunctionRef<bool(const FlatRow&)> take_;
  FlatRow row_;
  std::deque<std::string> decoded_;  // in this row
  int depth_ = kTop;
  std::size_t count_ = 0;
  bool isInOrder_ = false;
  bool isSpoilt_ = false;
};

bool isPartOf(std::string_view view, std::string_view text) {
  const std::less_equal<const char*> isNotBehind;
  return isNotBehind(text.data(), view.data()) && isNotBehind(view.data() + view.size(), text.data() + text.size());
}

const FlatMember* FlatRow::find(std::string_view key, FlatMember::Kind kind) const {
  const auto end = members_.begin() + static_cast<std::ptrdiff_t>(count_);
  const auto found = std::find_if(members_.begin(), end,
                                  [&](const FlatMember& member) { return member.key == key && member.kind == kind; });
  return found == end ? nullptr : &*found;
}

const FlatMember* FlatRow::find(std::string_view key) const {
  const auto end = members_.begin() + static_cast<std::ptrdiff_t>(count_);
  const auto found = std::find_if(members_.begin(), end, [key](const FlatMember& member) { return member.key == key; });
  return found == end ? nullptr : &*found;
}

const std::string_view* FlatRow::stringOf(std::string_view key) const {
  const FlatMember* const member = find(key, FlatMember::Kind::string);
  return member == nullptr ? nullptr : &member->texts.front();
}

const std::vector<std::string_view>* FlatRow::stringsOf(std::string_view key) const {
  const FlatMember* const member = find(key, FlatMember::Kind::strings);
  return member == nullptr ? nullptr : &member->texts;
}

namespace {

std::string readRows(std::string_view bytes, FlatRowReader::Root root, FunctionRef<bool(const FlatRow&)> take) {
  FlatRowReader reader(bytes, root, take);
  std::string error = readJsonEvents(bytes, reader);
  return error.empty() ? reader.error() : error;
}

}  // namespace

std::string readFlatRows(std::string_view bytes, FunctionRef<bool(const FlatRow&)> take) {
  return readRows(bytes, FlatRowReader::Root::array, take);
}

std::string readFlatRow(std::string_view bytes, FunctionRef<bool(const FlatRow&)> take) {
  return readRows(bytes, FlatRowReader::Root::object, take);
}

}  // namespace tavrine
