# What Windows is told about a program: its icon, its version and how it wants to be run.
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
enable_language(RC)

set(DESCRIPTION_vorlent "Vorlent, the server of a cockpit")
set(DESCRIPTION_vorlentd "Vorlent, the server of a cockpit, without a window")
set(DESCRIPTION_vorlent-sim "A flight behind the simulator interface, for Vorlent")
set(DESCRIPTION_vorlent-display "A display in a console, for Vorlent")
set(DESCRIPTION_vorlent-plan "The planner of Vorlent")
set(DESCRIPTION_vorlent-keeper "Starts Vorlent again when it ended by itself")
set(DESCRIPTION_vorlent-check "Checks a bridge to a simulator, for Vorlent")
set(DESCRIPTION_vorlent-bridge "FlightGear or X-Plane behind the simulator interface, for Vorlent")
set(DESCRIPTION_vorlent-mdb "A part of Vorlent that reads databases")
set(DESCRIPTION_vorlent-zip "A part of Vorlent that packs zip files")

function(vorlent_windows_program name)
  set(NAME ${name})
  set(DESCRIPTION ${DESCRIPTION_${name}})
  string(REPLACE "." "," VERSION_NUMBERS ${PROJECT_VERSION})
  set(RESOURCES ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/${name}.manifest)
  configure_file(${RESOURCES}/program.manifest.in ${MANIFEST} @ONLY)
  configure_file(${RESOURCES}/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc @ONLY)
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}.rc PROPERTIES
    OBJECT_DEPENDS "${MANIFEST};${RESOURCES}/vorlent.ico")
  target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  # An address of its own at each start, no data that can be run.
  target_link_options(${name} PRIVATE -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
endfunction()
