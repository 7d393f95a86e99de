# Qt for Windows and what else the server programs stand on there, built from Debian's sources.
set(VORLENT_WINDOWS_QT "" CACHE PATH
    "What packaging/windows/qt.sh prints; without it what stands on Qt is not built")
set(VORLENT_WINDOWS_PUGIXML "" CACHE PATH
    "What packaging/windows/pugixml.sh prints; without it vorlent-plan is not built")

list(PREPEND CMAKE_FIND_ROOT_PATH ${VORLENT_WINDOWS_QT} ${VORLENT_WINDOWS_PUGIXML})
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
if(VORLENT_WINDOWS_QT)
  set(Qt6_DIR ${VORLENT_WINDOWS_QT}/lib/cmake/Qt6)
  # Its tools run here, so they are Debian's.
  file(GLOB host_packages /usr/lib/*/cmake/Qt6HostInfo)
  get_filename_component(QT_HOST_PATH_CMAKE_DIR ${host_packages} DIRECTORY)
  set(QT_HOST_PATH /usr)
else()
  set(VORLENT_QT OFF)
endif()
