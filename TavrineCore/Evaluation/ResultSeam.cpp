#include "TavrineCore/Parsing/Primitives/ResultSeam.h"

#include <vector>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/List.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

bool areEqualResults(const EvaluationResult& left, const EvaluationResult& right) { return left == right; }

std::size_t hashOfResult(const EvaluationResult& result) { return result.hash(); }

std::size_t List::count() const { return members != nullptr ? members->size() : 0; }

std::size_t List::hash() const { return members != nullptr ? hashOfRange(*members) : 0; }

bool operator==(const List& left, const List& right) {
  if (left.members == right.members) return true;
  if (left.count() == 0 || right.count() == 0) return left.count() == right.count();
  return *left.members == *right.members;
}

}  // namespace tavrine
