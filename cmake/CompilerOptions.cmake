# Warnings and instrumentation for everything below this directory.

add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Werror=switch)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimising, g++ 12 sees overlapping copies inside std::string where there are none.
  add_compile_options(-Wno-restrict)
endif()
if(TAVRINE_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(TAVRINE_SANITIZERS)
  # A finding of the undefined-behaviour checks ends the program: a test that only prints one would pass.
  add_compile_options(-fsanitize=${TAVRINE_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TAVRINE_SANITIZERS})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Neither ninja nor ccache looks into the list: a name that changes with its content makes them compile anew.
    set(ignored ${CMAKE_CURRENT_LIST_DIR}/sanitizer-ignore.txt)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ignored})
    file(SHA1 ${ignored} ignoredHash)
    configure_file(${ignored} ${CMAKE_CURRENT_BINARY_DIR}/sanitizer-ignore-${ignoredHash}.txt COPYONLY)
    add_compile_options(-fsanitize-ignorelist=${CMAKE_CURRENT_BINARY_DIR}/sanitizer-ignore-${ignoredHash}.txt)
  endif()
endif()

if(TAVRINE_FUZZING)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "TAVRINE_FUZZING needs clang; the replay programs are built with any compiler without it")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
