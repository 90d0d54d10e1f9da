# Keeps one fresh copy of the resources beside the programs of this build.
set(resourceFolder TavrineCore_TavrineCore.resources)
set(resources ${PROJECT_SOURCE_DIR}/Resources/${resourceFolder})
file(GLOB_RECURSE resourceFiles CONFIGURE_DEPENDS ${resources}/*)

if(resourceFiles)
  set_target_properties(TavrineCore PROPERTIES TAVRINE_RESOURCES ${resources})
  if(PROJECT_IS_TOP_LEVEL)
    set(copy ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${resourceFolder})
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/resources.stamp)
    # The list of files is a dependency of its own: it alone tells of a file that was removed.
    set(list ${CMAKE_CURRENT_BINARY_DIR}/resources.list)
    file(CONFIGURE OUTPUT ${list} CONTENT "${resourceFiles}" @ONLY)
    add_custom_command(OUTPUT ${stamp}
      COMMAND ${CMAKE_COMMAND} -E rm -rf ${copy}
      COMMAND ${CMAKE_COMMAND} -E copy_directory ${resources} ${copy}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
      DEPENDS ${resourceFiles} ${list}
      COMMENT "Copying the resources"
      VERBATIM)
    add_custom_target(TavrineResources ALL DEPENDS ${stamp})
  endif()
endif()

# Makes sure that the copy is fresh whenever `target` is built.
function(tavrine_use_build_resources target)
  if(TARGET TavrineResources)
    add_dependencies(${target} TavrineResources)
  endif()
endfunction()
