# The icon, the version and the manifest of the programs for Windows.

if(WIN32)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(ORV_ICON ${CMAKE_BINARY_DIR}/generated/program.ico)
  set(icon_sources ${CMAKE_SOURCE_DIR}/packaging/windows/make_icon.py ${CMAKE_SOURCE_DIR}/packaging/windows/icon.svg)
  add_custom_command(OUTPUT ${ORV_ICON} DEPENDS ${icon_sources} VERBATIM
                     COMMAND Python3::Interpreter ${icon_sources} ${ORV_ICON})
  add_custom_target(program_icon DEPENDS ${ORV_ICON})
endif()

# Describes a program by the name of its file and a text for people. Other systems have no such resources.
function(orv_describe_program target ORV_FILE ORV_DESCRIPTION)
  if(NOT WIN32)
    return()
  endif()
  string(REPLACE "." "," ORV_VERSION_NUMBERS "${PROJECT_VERSION}.0")
  set(ORV_MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest.in ${ORV_MANIFEST} @ONLY)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS "${ORV_ICON};${ORV_MANIFEST}")
  # Without the options for C++, which the resource compiler does not know.
  add_library(${target}_resources OBJECT ${resources})
  set_target_properties(${target}_resources PROPERTIES COMPILE_OPTIONS "" COMPILE_DEFINITIONS "")
  add_dependencies(${target}_resources program_icon)
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_resources>)
endfunction()
