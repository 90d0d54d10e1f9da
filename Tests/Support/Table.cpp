#include "Tests/Support/Table.h"

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <map>
#include <mutex>
#include <utility>

#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "Tests/Support/CorpusFile.h"

namespace tavrine::testing {
namespace {

using Tables = std::map<std::string, std::deque<Cells>, std::less<>>;

Cells cellsIn(std::string_view row, std::deque<std::string>& texts) {
  Cells cells;
  for (std::size_t start = 0; start <= row.size();) {
    const std::size_t end = std::min(row.find('\t', start), row.size());
    cells.push_back({texts.emplace_back(unescaped(row.substr(start, end - start)))});
    start = end + 1;
  }
  return cells;
}

Tables tablesIn(std::string_view file, std::deque<std::string>& texts) {
  const std::string path = std::string(TAVRINE_SOURCE_DIR "/Tests/").append(file).append(".tsv");
  std::ifstream stream(path);
  EXPECT_TRUE(stream) << "can't read " << path;
  Tables tables;
  std::deque<Cells>* table = nullptr;
  for (std::string row; std::getline(stream, row);) {
    if (row.empty() || row.front() == '#') continue;
    if (row.front() == '@') {
      const auto [place, isNew] = tables.try_emplace(row.substr(1));
      EXPECT_TRUE(isNew) << path << ": " << row << " twice";
      table = &place->second;
    } else if (table != nullptr) {
      table->push_back(cellsIn(row, texts));
    }
  }
  return tables;
}

template <class Name>
void readNamed(std::string_view text, Name& value, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    value = static_cast<Name>(i);
    if (toString(value) == text) return;
  }
  ADD_FAILURE() << "nothing has the name " << text;
}

/// The names are those of the enumerators, in their order.
template <class Name>
void readOneOf(std::string_view text, Name& value, std::initializer_list<std::string_view> names) {
  const auto* const found = std::find(names.begin(), names.end(), text);
  ASSERT_NE(found, names.end()) << "nothing has the name " << text;
  value = static_cast<Name>(found - names.begin());
}

}  // namespace

void readCell(std::string_view text, bool& value) {
  value = text == "true";
  EXPECT_TRUE(value || text == "false") << text;
}
void readCell(std::string_view text, foundation::Decimal& value) {
  value = foundation::Decimal::parse(text).value_or(foundation::Decimal::nan());
}
void readCell(std::string_view text, UnitIdentifier& value) { readNamed(text, value, kUnitIdentifierCount); }
void readCell(std::string_view text, FunctionIdentifier& value) { readNamed(text, value, kFunctionIdentifierCount); }
void readCell(std::string_view text, DatestampType& value) { readNamed(text, value, kDatestampTypeCount); }
void readCell(std::string_view text, TokenType& value) { readNamed(text, value, kTokenTypeCount); }
void readCell(std::string_view text, TokenSubType& value) { readNamed(text, value, kTokenSubTypeCount); }
void readCell(std::string_view text, SIThreshold& value) {
  readNamed(text, value, static_cast<std::size_t>(SIThreshold::thousand) + 1);
}
void readCell(std::string_view text, SpecialDay::SpecialDayType& value) {
  readNamed(text, value, static_cast<std::size_t>(SpecialDay::SpecialDayType::ramadanEnd) + 1);
}
void readCell(std::string_view text, CharacterType& value) {
  readOneOf(text, value,
            {"whitespace", "number", "letter", "symbol", "apostrophe", "dot", "comma", "underscore", "hash", "hanzi",
             "internalReference", "other"});
}
void readCell(std::string_view text, DateWordType& value) {
  readOneOf(text, value, {"am", "pm", "month", "dayOfWeek", "quarter"});
}
void readCell(std::string_view text, Fixture& value) {
  readOneOf(text, value,
            {
#define FIXTURE(name, raw, type, subType) #name,
#include "TavrineCore/Customization/Fixtures/Fixture.def"
            });
}
void readCell(std::string_view text, MisplacedThousandsSeparatorBehavior& value) {
  readOneOf(text, value, {"allow", "disallow", "interpretAsDecimalPoint"});
}
void readCell(std::string_view text, UnitMeasurementSystem& value) {
  readOneOf(text, value, {"customaryUS", "imperial", "metric"});
}
void readCell(std::string_view text, foundation::MeasurementSystem& value) {
  readOneOf(text, value, {"metric", "us", "uk"});
}
void readCell(std::string_view text, foundation::NumberStyle& value) {
  readOneOf(text, value, {"none", "decimal", "percent", "scientific"});
}
void readCell(std::string_view text, foundation::PluralCategory& value) {
  readOneOf(text, value, {"zero", "one", "two", "few", "many", "other"});
}
void readCell(std::string_view text, foundation::DateComponents& value) {
  using foundation::DateComponents;
  static constexpr std::pair<std::string_view, std::optional<std::int64_t> DateComponents::*> kMembers[] = {
      {"era", &DateComponents::era},
      {"year", &DateComponents::year},
      {"month", &DateComponents::month},
      {"day", &DateComponents::day},
      {"hour", &DateComponents::hour},
      {"minute", &DateComponents::minute},
      {"second", &DateComponents::second},
      {"nanosecond", &DateComponents::nanosecond},
      {"weekday", &DateComponents::weekday},
      {"weekdayOrdinal", &DateComponents::weekdayOrdinal},
      {"quarter", &DateComponents::quarter},
      {"weekOfYear", &DateComponents::weekOfYear},
      {"yearForWeekOfYear", &DateComponents::yearForWeekOfYear}};
  eachMember(text, [&value](std::string_view name, const Cell& cell) {
    const auto* member = std::find_if(std::begin(kMembers), std::end(kMembers),
                                      [name](const auto& candidate) { return candidate.first == name; });
    ASSERT_NE(member, std::end(kMembers)) << name;
    value.*member->second = cell;
  });
}
void readCell(std::string_view text, std::vector<std::string_view>& value) {
  if (text == "-") return;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find("; "), text.size());
    value.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 2, text.size()));
  }
}

void readCell(std::string_view text, std::vector<std::string>& value) {
  std::vector<std::string_view> texts;
  readCell(text, texts);
  value.assign(texts.begin(), texts.end());
}

const std::deque<Cells>& cellsOf(std::string_view file, std::string_view table) {
  static std::mutex mutex;
  static std::deque<std::string> texts;
  static std::map<std::string, Tables, std::less<>> files;
  const std::lock_guard lock(mutex);
  auto found = files.find(file);
  if (found == files.end()) found = files.emplace(file, tablesIn(file, texts)).first;
  const std::deque<Cells>& rows = found->second[std::string(table)];
  EXPECT_FALSE(rows.empty()) << file << ".tsv has no table " << table;
  return rows;
}

}  // namespace tavrine::testing
