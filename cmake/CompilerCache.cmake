# ccache, when there is one. Sources that use a precompiled header are only cached when ccache may
# disregard what it can't see in it: __TIME__, macros of the command line, times of files.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    ${CCACHE})
endif()
