#include "TavrineCore/Utility/Pluralize.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Imports.h"

namespace tavrine {
namespace {

constexpr auto kUncountables = std::to_array<std::string_view>({
    "access",        "accommodation", "adulthood",     "advertising",   "advice",        "aggression",  "aid",
    "air",           "alcohol",       "anger",         "applause",      "arithmetic",    "art",         "assistance",
    "athletics",     "attention",     "bacon",         "baggage",       "ballet",        "beauty",      "beef",
    "beer",          "biology",       "botany",        "bread",         "butter",        "carbon",      "cash",
    "chaos",         "cheese",        "chess",         "childhood",     "clothing",      "coal",        "coffee",
    "commerce",      "compassion",    "comprehension", "content",       "corruption",    "cotton",      "courage",
    "currency",      "dancing",       "danger",        "data",          "delight",       "dignity",     "dirt",
    "distribution",  "dust",          "economics",     "education",     "electricity",   "employment",  "engineering",
    "envy",          "equipment",     "ethics",        "evidence",      "evolution",     "faith",       "fame",
    "fish",          "flour",         "flu",           "food",          "freedom",       "fuel",        "fun",
    "furniture",     "garbage",       "garlic",        "genetics",      "gold",          "golf",        "gossip",
    "grammar",       "gratitude",     "grief",         "ground",        "guilt",         "gymnastics",  "hair",
    "happiness",     "hardware",      "harm",          "hate",          "hatred",        "health",      "heat",
    "height",        "help",          "homework",      "honesty",       "honey",         "hospitality", "housework",
    "humour",        "hunger",        "hydrogen",      "ice",           "ice",           "cream",       "importance",
    "inflation",     "information",   "injustice",     "innocence",     "iron",          "irony",       "jealousy",
    "jelly",         "judo",          "karate",        "kindness",      "knowledge",     "labour",      "lack",
    "laughter",      "lava",          "leather",       "leisure",       "lightning",     "linguistics", "litter",
    "livestock",     "logic",         "loneliness",    "luck",          "luggage",       "machinery",   "magic",
    "management",    "mankind",       "marble",        "mathematics",   "mayonnaise",    "measles",     "meat",
    "methane",       "milk",          "money",         "mud",           "music",         "nature",      "news",
    "nitrogen",      "nonsense",      "nurture",       "nutrition",     "obedience",     "obesity",     "oil",
    "oxygen",        "passion",       "pasta",         "patience",      "permission",    "physics",     "poetry",
    "pollution",     "poverty",       "power",         "pronunciation", "psychology",    "publicity",   "quartz",
    "racism",        "rain",          "relaxation",    "reliability",   "research",      "respect",     "revenge",
    "rice",          "rubbish",       "rum",           "salad",         "satire",        "seaside",     "shame",
    "shopping",      "silence",       "sleep",         "smoke",         "smoking",       "snow",        "soap",
    "software",      "soil",          "sorrow",        "soup",          "speed",         "spelling",    "steam",
    "stuff",         "stupidity",     "sunshine",      "symmetry",      "tennis",        "thirst",      "thunder",
    "toast",         "tolerance",     "toys",          "traffic",       "transporation", "travel",      "trust",
    "understanding", "unemployment",  "unity",         "validity",      "veal",          "vengeance",   "violence",
});
static_assert(kUncountables.size() == 217);

struct Rule {
  std::string_view pattern;
  std::string_view replacement;
};

// Tried from the last to the first, so that an exception stands below the rule it is one from. Patterns use a small
// part of the notation of regular expressions: "^" or nothing, one group of alternatives or none, letters, "$" or
// nothing. "$1" is what the group matched. Case doesn't matter.
constexpr auto kRules = std::to_array<Rule>({
    {R"($)", "$1s"},
    {R"(s$)", "$1ses"},
    {R"((t|r|l|b|p)y$)", "$1ies"},
    {R"(x$)", "$1xes"},
    {R"((sh|zz|ss)$)", "$1es"},
    {R"((ax)is)", "$1es"},
    {R"((cact|nucle|alumn|bacill|fung|radi|stimul|syllab)us$)", "$1i"},
    {R"((corp)us$)", "$1ora"},
    {R"(sis$)", "$1ses"},
    {R"(ch$)", "$1ches"},
    {R"(o$)", "$1os"},
    {R"((buffal|carg|mosquit|torped|zer|vet|her|ech)o$)", "$1oes"},
    {R"(fe$)", "$1ves"},
    {R"((thie)f$)", "$1ves"},
    {R"(oaf$)", "$1oaves"},
    {R"(um$)", "$1a"},
    {R"(ium$)", "$1ia"},
    {R"(oof$)", "$1ooves"},
    {R"((nebul)a)", "$1ae"},
    {R"((criteri|phenomen)on$)", "$1a"},
    {R"((potat|tomat|volcan)o$)", "$1oes"},
    {R"(^(|wo|work|fire)man$)", "$1men"},
    {R"((f)oot$)", "$1eet"},
    {R"(lf$)", "$1lves"},
    {R"((t)ooth$)", "$1eeth"},
    {R"((g)oose$)", "$1eese"},
    {R"(^(c)hild$)", "$1hildren"},
    {R"(^(o)x$)", "$1xen"},
    {R"(^(p)erson$)", "$1eople"},
    {R"((m|l)ouse$)", "$1ice"},
    {R"(^(d)ie$)", "$1ice"},
    {R"(^(alg|vertebr|vit)a$)", "$1ae"},
    {R"(^(a)lumna$)", "$1lumnae"},
    {R"(^(a)pparatus$)", "$1pparatuses"},
    {R"(^(ind)ex$)", "$1ices"},
    {R"(^(append|matr)ix$)", "$1ices"},
    {R"(^(b|tabl)eau$)", "$1eaux"},
    {R"(arf$)", "$1arves"},
    {R"((embarg)o$)", "$1oes"},
    {R"((gen)us$)", "$1era"},
    {R"((r)oof$)", "$1oofs"},
    {R"((l)eaf$)", "$1eaves"},
    {R"((millen)ium$)", "$1ia"},
    {R"((th)at$)", "$1ose"},
    {R"((th)is$)", "$1ese"},
});
static_assert(kRules.size() == 45);

struct Pattern {
  bool isAtStart = false;
  std::string_view alternatives;  // "t|r|l"; empty without a group, which is one empty alternative
  std::string_view letters;
  bool isAtEnd = false;
};

constexpr Pattern parsed(std::string_view text) {
  Pattern pattern;
  if (text.starts_with('^')) {
    pattern.isAtStart = true;
    text.remove_prefix(1);
  }
  if (text.ends_with('$')) {
    pattern.isAtEnd = true;
    text.remove_suffix(1);
  }
  if (text.starts_with('(')) {
    const std::size_t close = text.find(')');
    pattern.alternatives = text.substr(1, close - 1);
    text.remove_prefix(close + 1);
  }
  pattern.letters = text;
  return pattern;
}

constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() &&
         std::equal(prefix.begin(), prefix.end(), text.begin(), [](char a, char b) { return a == asciiLower(b); });
}

struct Match {
  std::string_view group;
  std::size_t length = 0;
};

std::optional<Match> matchAt(const Pattern& pattern, std::string_view text) {
  std::string_view rest = pattern.alternatives;
  for (;;) {
    const std::size_t bar = rest.find('|');
    const std::string_view alternative = rest.substr(0, bar);
    const std::size_t length = alternative.size() + pattern.letters.size();
    if ((!pattern.isAtEnd || text.size() == length) && startsWithIgnoringCase(text, alternative) &&
        startsWithIgnoringCase(text.substr(alternative.size()), pattern.letters)) {
      return Match{text.substr(0, alternative.size()), length};
    }
    if (bar == std::string_view::npos) return std::nullopt;
    rest.remove_prefix(bar + 1);
  }
}

void appendReplacement(std::string_view replacement, std::string_view group, std::string& text) {
  if (replacement.starts_with("$1")) {
    text += group;
    replacement.remove_prefix(2);
  }
  text += replacement;
}

std::string replacingMatches(const Rule& rule, std::string_view word) {
  const Pattern pattern = parsed(rule.pattern);
  std::string result;
  std::size_t position = 0;
  while (position <= word.size()) {
    std::optional<Match> match;
    if (position == 0 || !pattern.isAtStart) match = matchAt(pattern, word.substr(position));
    if (match) appendReplacement(rule.replacement, match->group, result);
    if (match && match->length > 0) {
      position += match->length;
    } else {
      if (position < word.size()) result += word[position];
      ++position;
    }
  }
  return result;
}

}  // namespace

bool Pluralize::isUncountable(std::string_view word) {
  return std::ranges::find(kUncountables, lowercased(word)) != kUncountables.end();
}

std::string Pluralize::pluralized(std::string_view word) {
  if (word.empty() || isUncountable(word)) return std::string(word);
  for (auto rule = kRules.rbegin(); rule != kRules.rend(); ++rule) {
    std::string candidate = replacingMatches(*rule, word);
    if (candidate != word) return candidate;
  }
  return std::string(word);
}

std::string singularized(std::string_view word) {
  if (word.ends_with('s')) {
    const std::string_view candidate = word.substr(0, word.size() - 1);
    if (Pluralize::pluralized(candidate) == word) return std::string(candidate);
  }
  return std::string(word);
}

}  // namespace tavrine
