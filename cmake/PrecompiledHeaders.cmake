# Headers of the standard library that most sources include anyway. Nothing of ours stands here, so a
# change to our own headers never rebuilds more than their includers.
set(TAVRINE_STANDARD_HEADERS
  <algorithm> <any> <array> <atomic> <bitset> <charconv> <chrono> <cmath> <compare> <concepts> <cstdint> <cstring>
  <deque> <functional> <future> <initializer_list> <limits> <map> <memory> <mutex> <numeric> <optional> <set>
  <shared_mutex> <span> <stop_token> <string> <string_view> <thread> <tuple> <type_traits> <unordered_map>
  <unordered_set> <utility> <variant> <vector>)

# Precompiles the standard headers, and further ones given after the target, for the target.
function(tavrine_precompile_headers target)
  if(NOT TAVRINE_PRECOMPILE_HEADERS)
    return()
  endif()
  target_precompile_headers(${target} PRIVATE ${TAVRINE_STANDARD_HEADERS} ${ARGN})
  # Otherwise the time of the build is part of the file, and ccache never finds it again.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>)
endfunction()
