#include "TavrineCore/Parsing/Helpers/DateWordsList.h"

#include <utility>

#include "Foundation/CalendarSymbols.h"
#include "Foundation/Text.h"

namespace tavrine {

namespace {

constexpr std::string_view kDaySuffix = "day";
constexpr int kSeptember = 9;

std::optional<int> numbered(std::size_t index) { return static_cast<int>(index) + 1; }

}  // namespace

DateWordsList::DateWordsList(const Calendar& calendar) {
  addWordsOf(calendar);
  const Locale english("en_US");
  if (calendar.locale() == english) return;
  // English month names are understood nearly everywhere, and the other Englishes shorten some months differently
  // ("Sept" for "Sep"). A Russian line stays Russian.
  if (calendar.locale().hasPrefix("ru")) return;
  Calendar englishCalendar = calendar;
  englishCalendar.setLocale(english);
  addWordsOf(englishCalendar);
}

void DateWordsList::addWordsOf(const Calendar& calendar) {
  const CalendarSymbols symbols(calendar.identifier(), calendar.locale());
  const bool isEnglish = calendar.locale().hasPrefix("en");

  for (const auto& months : {symbols.months, symbols.standaloneMonths}) {
    for (std::size_t i = 0; i < months.size(); ++i) add(DateWordType::month, months[i], numbered(i));
  }
  for (const auto& months : {symbols.shortMonths, symbols.shortStandaloneMonths}) {
    for (std::size_t i = 0; i < months.size(); ++i) addAbbreviation(DateWordType::month, months[i], numbered(i));
  }
  if (isEnglish) add(DateWordType::month, "sept", kSeptember);

  for (std::size_t i = 0; i < symbols.weekdays.size(); ++i) {
    add(DateWordType::dayOfWeek, symbols.weekdays[i], numbered(i));
    const std::string weekday = lowercased(symbols.weekdays[i]);
    if (weekday.size() > kDaySuffix.size() && weekday.ends_with(kDaySuffix)) {
      add(DateWordType::dayOfWeek, std::string_view(weekday).substr(0, weekday.size() - kDaySuffix.size()),
          numbered(i));
    }
  }
  for (std::size_t i = 0; i < symbols.shortWeekdays.size(); ++i) {
    addAbbreviation(DateWordType::dayOfWeek, symbols.shortWeekdays[i], numbered(i));
  }

  add(DateWordType::am, symbols.am, std::nullopt);
  add(DateWordType::pm, symbols.pm, std::nullopt);
  for (std::size_t i = 0; i < symbols.shortQuarters.size(); ++i) {
    add(DateWordType::quarter, symbols.shortQuarters[i], static_cast<int>(i));
  }
}

void DateWordsList::add(DateWordType type, std::string_view word, std::optional<int> index) {
  if (word.empty()) return;
  DateWord dateWord{type, lowercased(word), index};
  const auto [place, isNew] = cachedIdentifiers_.try_emplace(dateWord.fragment, allDateWords_.size());
  if (isNew) {
    allDateWords_.push_back(std::move(dateWord));
  } else {
    allDateWords_[place->second] = std::move(dateWord);
  }
}

void DateWordsList::addAbbreviation(DateWordType type, std::string_view word, std::optional<int> index) {
  add(type, word, index);
  if (word.ends_with('.')) add(type, word.substr(0, word.size() - 1), index);
}

const DateWord* DateWordsList::dateWordFor(std::string_view fragment) const {
  auto found = cachedIdentifiers_.find(fragment);
  if (found == cachedIdentifiers_.end() && !isLowercased(fragment)) {
    found = cachedIdentifiers_.find(lowercased(fragment));
  }
  return found == cachedIdentifiers_.end() ? nullptr : &allDateWords_[found->second];
}

}  // namespace tavrine
