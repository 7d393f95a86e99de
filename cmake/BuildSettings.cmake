# Compiler settings that hold for every target, and the switches of the presets.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(VORLENT_QT "Build what stands on Qt: the server programs, the display and the windows" ON)
option(VORLENT_TESTS "Build the tests" ON)
option(VORLENT_BENCH "Build what measures and draws for the documents" ON)
option(VORLENT_TEST_BY_PROGRAM "Give ctest whole test programs, not each of their tests" ON)
# Half of the processor's time. The builds for the sanitizers and for Windows compile each file alone.
option(VORLENT_TOGETHER "Compile eight sources at a time" OFF)
set(VORLENT_SANITIZE "" CACHE STRING "Sanitizers, comma-separated, such as address,undefined")
option(VORLENT_COVERAGE "Count executed lines" OFF)
option(VORLENT_LIBFUZZER "Build the fuzz harnesses with libFuzzer (clang)" OFF)

# What ccache must overlook to keep precompiled headers, and what lets a clone in another folder find
# the objects of this one.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=true ${CCACHE})
endif()

# All programs stand in one folder, which is the program folder of the build.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
                    -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 raises false alarms in std::string's own operators when it optimises (its bug 105651); out
  # of a precompiled header they are not silenced as those of system headers are. The Windows build,
  # which has none, keeps those two warnings.
  add_compile_options(-Wno-restrict)
  if(NOT WIN32)
    add_compile_options(-Wno-stringop-overflow -Wno-array-bounds)
  endif()
  # Its garbage collector takes a seventh of the time where it has to save memory: from 512 MB on.
  add_compile_options(--param=ggc-min-heapsize=524288)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # A precompiled header out of ccache is older or younger than what it holds.
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()
# Qt asks for it of what stands on it, and one precompiled header serves only what is compiled alike.
if(NOT WIN32)
  add_compile_options(-fPIC)
endif()
if(VORLENT_SANITIZE)
  add_compile_options(-fsanitize=${VORLENT_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VORLENT_SANITIZE})
endif()
if(VORLENT_LIBFUZZER)  # the harnesses see the branches of all code, not of their own file only
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
if(VORLENT_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()
