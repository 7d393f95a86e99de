# What packaging/windows/libraries.sh and recordingLibraries.sh have built, under the names that
# pkg-config's have on Linux.
set(VORLENT_WINDOWS_LIBRARIES "" CACHE PATH
    "What packaging/windows/libraries.sh prints; without it the helpers vorlent-mdb and vorlent-zip are not built")

set(VORLENT_WINDOWS_RECORDING "" CACHE PATH
    "What packaging/windows/recordingLibraries.sh prints; without it vorlent-recorder and vorlent-replay are not built")

# vorlent_windows_library(NAME file [library...] [FROM folder])
function(vorlent_windows_library name file)
  cmake_parse_arguments(ARG "" "FROM" "" ${ARGN})
  if(NOT ARG_FROM)
    set(ARG_FROM ${VORLENT_WINDOWS_LIBRARIES})
  endif()
  add_library(PkgConfig::${name} STATIC IMPORTED GLOBAL)
  set_target_properties(PkgConfig::${name} PROPERTIES
    IMPORTED_LOCATION ${ARG_FROM}/lib/${file}
    INTERFACE_INCLUDE_DIRECTORIES ${ARG_FROM}/include
    INTERFACE_LINK_LIBRARIES "${ARG_UNPARSED_ARGUMENTS}")
endfunction()

if(VORLENT_WINDOWS_LIBRARIES)
  vorlent_windows_library(LIBMDB libmdb.a)
  vorlent_windows_library(LIBARCHIVE libarchive.a ${VORLENT_WINDOWS_LIBRARIES}/lib/libz.a bcrypt)
  set_target_properties(PkgConfig::LIBARCHIVE PROPERTIES
    INTERFACE_COMPILE_DEFINITIONS LIBARCHIVE_STATIC)
endif()
if(VORLENT_WINDOWS_RECORDING)
  vorlent_windows_library(SQLITE libsqlite3.a FROM ${VORLENT_WINDOWS_RECORDING})
  vorlent_windows_library(ZSTD libzstd.a FROM ${VORLENT_WINDOWS_RECORDING})
endif()
