# Libraries that are headers and nothing else serve every target system. Each is linked alone into a
# folder of the build: of the other headers beside it a compiler for Windows must see nothing.
function(vorlent_header_library target folder header)
  find_path(${target}_FOLDER ${folder}/${header} REQUIRED NO_CMAKE_FIND_ROOT_PATH
            PATHS /usr/local/include /usr/include)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
  file(CREATE_LINK ${${target}_FOLDER}/${folder} ${PROJECT_BINARY_DIR}/headers/${folder} SYMBOLIC)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/headers)
endfunction()

vorlent_header_library(vorlent_cli11 CLI CLI.hpp)
# Compiling it anew with each file that formats takes four seconds a file: only where Debian has no
# library of it.
if(WIN32)
  vorlent_header_library(vorlent_fmt fmt format.h)
  target_compile_definitions(vorlent_fmt INTERFACE FMT_HEADER_ONLY)
else()
  find_package(fmt REQUIRED)
  add_library(vorlent_fmt ALIAS fmt::fmt)
endif()
