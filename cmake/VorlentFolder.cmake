# The folders share a precompiled header, which the first of them makes. The Windows build does
# without, and so sees to it that a file includes what it uses.
set(VORLENT_PRECOMPILED
  <algorithm> <array> <chrono> <cmath> <cstdint> <filesystem> <functional> <map> <memory> <optional>
  <span> <string> <string_view> <vector>)

function(vorlent_precompile name)
  if(WIN32)
    return()
  endif()
  get_property(maker GLOBAL PROPERTY VORLENT_PRECOMPILED_BY)
  if(maker)
    target_precompile_headers(${name} REUSE_FROM ${maker})
  else()
    target_precompile_headers(${name} PRIVATE ${VORLENT_PRECOMPILED})
    set_property(GLOBAL PROPERTY VORLENT_PRECOMPILED_BY ${name})
  endif()
endfunction()

# vorlent_folder(NAME folder... [DEPENDS target...] [ALONE])
# One static library of all sources that lie directly in the folders (relative to src/). ALONE: each
# is compiled by itself in every build, since their tables bear one name.
function(vorlent_folder name)
  cmake_parse_arguments(ARG "ALONE" "" "DEPENDS" ${ARGN})
  set(patterns)
  foreach(folder IN LISTS ARG_UNPARSED_ARGUMENTS)
    list(APPEND patterns ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp
                         ${PROJECT_SOURCE_DIR}/src/${folder}/*.h)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(NOT sources)
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  vorlent_precompile(${name})
  if(NOT ARG_ALONE)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ${VORLENT_TOGETHER} UNITY_BUILD_BATCH_SIZE 8)
  endif()
endfunction()
