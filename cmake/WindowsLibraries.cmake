# What packaging/windows/libraries.sh has built, under the names that pkg-config's have on Linux.
set(VORLENT_WINDOWS_LIBRARIES "" CACHE PATH
    "What packaging/windows/libraries.sh prints; without it the helpers vorlent-mdb and vorlent-zip are not built")

# vorlent_windows_library(NAME file [library...])
function(vorlent_windows_library name file)
  add_library(PkgConfig::${name} STATIC IMPORTED GLOBAL)
  set_target_properties(PkgConfig::${name} PROPERTIES
    IMPORTED_LOCATION ${VORLENT_WINDOWS_LIBRARIES}/lib/${file}
    INTERFACE_INCLUDE_DIRECTORIES ${VORLENT_WINDOWS_LIBRARIES}/include
    INTERFACE_LINK_LIBRARIES "${ARGN}")
endfunction()

if(VORLENT_WINDOWS_LIBRARIES)
  vorlent_windows_library(LIBMDB libmdb.a)
  vorlent_windows_library(LIBARCHIVE libarchive.a ${VORLENT_WINDOWS_LIBRARIES}/lib/libz.a bcrypt)
  set_target_properties(PkgConfig::LIBARCHIVE PROPERTIES
    INTERFACE_COMPILE_DEFINITIONS LIBARCHIVE_STATIC)
endif()
