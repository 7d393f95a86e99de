# The Debian package. Libraries it depends on are found by dpkg-shlibdeps.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorlent)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Vorlent <vorlent@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Without it Qt finds no screen; its libraries alone do not ask for it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS samba-common-bin)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "server of a home-built airliner cockpit")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Vorlent runs beside a flight simulator and gives the builder of a cockpit
what the simulator lacks: an autoflight system for the Boeing 737 family,
joystick boards wired to aircraft functions, and the whole aircraft state as a
stream of text records to the cockpit's display PCs.

An aircraft to try it with, a planner of flights, a display for a terminal and
a joystick that is moved from the command line come with it.")
include(CPack)
