# panel_add_layer(<name> DIRS <dir>... DEPS <target>...)
# Builds every source below the given folders into one static library. A layer
# that has no sources yet is an interface library, so the tree always configures.
function(panel_add_layer name)
  cmake_parse_arguments(L "" "" "DIRS;DEPS" ${ARGN})
  set(sources)
  foreach(dir IN LISTS L_DIRS)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
      ${CMAKE_SOURCE_DIR}/${dir}/*.cpp
      ${CMAKE_SOURCE_DIR}/${dir}/*.h
      ${CMAKE_SOURCE_DIR}/${dir}/*.qrc)
    list(APPEND sources ${found})
  endforeach()
  list(FILTER sources EXCLUDE REGEX "/src/main\\.cpp$")
  set(compiled ${sources})
  list(FILTER compiled INCLUDE REGEX "\\.(cpp|qrc)$")
  if(compiled)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${L_DEPS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${L_DEPS})
  endif()
endfunction()
