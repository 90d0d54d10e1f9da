#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace tavrine {

template <class Signature>
class FunctionRef;

/// A callable passed down a call: two words, no allocation, no ownership. Only for parameters, since it does not keep
/// a temporary alive.
template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
 public:
  template <class Callable>
  requires(!std::is_same_v<std::remove_cvref_t<Callable>, FunctionRef> &&
           std::is_invocable_r_v<Result, Callable&, Arguments...>) FunctionRef(Callable&& callable)
  noexcept  // NOLINT(google-explicit-constructor): a parameter takes any callable
      : object_(const_cast<void*>(static_cast<const void*>(std::addressof(callable)))),
        call_([](void* object, Arguments... arguments) -> Result {
          return static_cast<Result>(
              (*static_cast<std::remove_reference_t<Callable>*>(object))(std::forward<Arguments>(arguments)...));
        }) {}

  Result operator()(Arguments... arguments) const { return call_(object_, std::forward<Arguments>(arguments)...); }

 private:
  void* object_;
  Result (*call_)(void*, Arguments...);
};

}  // namespace tavrine
