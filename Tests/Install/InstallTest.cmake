# Installs the build into an empty prefix, builds the host against it, and runs the host.
file(REMOVE_RECURSE ${SCRATCH})

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY COMMAND_ECHO STDOUT)
endfunction()

run(${CMAKE_COMMAND} -E env --unset=DESTDIR ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix ${SCRATCH}/prefix)
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/Host -B ${SCRATCH}/host -G ${GENERATOR}
  -D CMAKE_BUILD_TYPE=${CONFIG} -D CMAKE_CXX_COMPILER=${COMPILER}
  -D CMAKE_PREFIX_PATH=${SCRATCH}/prefix -D CMAKE_FIND_PACKAGE_PREFER_CONFIG=ON)
run(${CMAKE_COMMAND} --build ${SCRATCH}/host)

execute_process(COMMAND ${SCRATCH}/host/Host OUTPUT_VARIABLE answer COMMAND_ERROR_IS_FATAL ANY)
if(NOT answer STREQUAL "3\n")
  message(FATAL_ERROR "The host answers \"${answer}\"")
endif()

# The host must find the resources without looking into the prefix.
file(GLOB installed ${SCRATCH}/prefix/share/TavrineCore/*/*/*.json)
file(GLOB copied ${SCRATCH}/host/TavrineCore_TavrineCore.resources/*/*.json)
list(LENGTH installed installedCount)
list(LENGTH copied copiedCount)
if(NOT installedCount EQUAL copiedCount)
  message(FATAL_ERROR "Of ${installedCount} resources ${copiedCount} stand beside the host")
endif()
