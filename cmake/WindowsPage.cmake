# What the cockpit in the browser stands on, under the name that pkg-config's has on Linux.
set(VORLENT_WINDOWS_QRENCODE "" CACHE PATH
    "What packaging/windows/qrencode.sh prints; without it vorlent-web is not built")

if(VORLENT_WINDOWS_QRENCODE)
  add_library(PkgConfig::QRENCODE STATIC IMPORTED GLOBAL)
  set_target_properties(PkgConfig::QRENCODE PROPERTIES
    IMPORTED_LOCATION ${VORLENT_WINDOWS_QRENCODE}/lib/libqrencode.a
    INTERFACE_INCLUDE_DIRECTORIES ${VORLENT_WINDOWS_QRENCODE}/include)
  vorlent_header_library(vorlent_boost boost beast.hpp)
  target_compile_definitions(vorlent_boost INTERFACE _WIN32_WINNT=0x0A00)
  target_link_libraries(vorlent_boost INTERFACE ws2_32 mswsock)
endif()
