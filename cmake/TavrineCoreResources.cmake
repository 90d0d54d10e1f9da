# tavrine_copy_resources(target): puts the resource folder beside the program that `target` builds, where the
# library looks for it. The target must belong to the calling directory.
#
# Serves both the source tree (add_subdirectory) and an installed package (find_package).
function(tavrine_copy_resources target)
  get_target_property(resources TavrineCore::TavrineCore TAVRINE_RESOURCES)
  if(NOT resources)
    message(WARNING "TavrineCore has no resources to copy beside ${target}")
    return()
  endif()
  cmake_path(GET resources FILENAME folder)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${resources}/*)
  # A changed resource links the program anew, and each link copies.
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${files})
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${resources} $<TARGET_FILE_DIR:${target}>/${folder}
    VERBATIM)
endfunction()
