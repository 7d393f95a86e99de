# Sourced: installs the Debian packages that are missing, and says what for.
#   install_packages "what for" package...

install_packages() {
  local purpose=$1 package missing=() as_root=()
  shift
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "Please install as root: apt-get install ${missing[*]}" >&2
      return 1
    }
    as_root=(sudo)
  fi
  echo "Installing $purpose: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

install_build_packages() {
  install_packages "the compiler and the build tools" g++ cmake ninja-build ccache
  install_packages "the library that reads joysticks" libevdev-dev pkg-config
  install_packages "the library that finds joysticks and where they are plugged in" libudev-dev
  install_packages "the library that plays sounds" libopenal-dev
  install_packages "Qt, for windows, sockets and timers" qt6-base-dev qt6-qpa-plugins
  install_packages "the library that reads the programs' options" libcli11-dev
  install_packages "the library that formats text" libfmt-dev
  install_packages "the line editor of the display" libedit-dev
  install_packages "the library that reads the shares of other machines" libsmbclient-dev
  install_packages "the library that reads Access databases" mdbtools-dev
  install_packages "the library that reads the planner's XML" libpugixml-dev
  install_packages "the library of zip files" libarchive-dev
  install_packages "the libraries of the recordings' files" libsqlite3-dev libzstd-dev
  install_packages "the web server of the cockpit in the browser" qt6-httpserver-dev qt6-websockets-dev
  install_packages "the library that draws QR codes" libqrencode-dev
  install_packages "the program that makes the manual" cmark-gfm
  install_packages "X, for keys that are sent to other programs" libxtst-dev
}

install_test_packages() {
  install_packages "the test and benchmark libraries" libgtest-dev libgmock-dev libbenchmark-dev
  install_packages "the great circles that the planner is held against" libgeographiclib-dev
  install_packages "what the script that makes the sounds is written in" python3
  install_packages "joysticks that are played from descriptions" umockdev libumockdev-dev
  install_packages "a loudspeaker that tests record" pulseaudio pulseaudio-utils
  install_packages "the server of shares that tests read from" samba
  install_packages "the X server without a screen in which tests send keys" xvfb x11-xkb-utils
  install_packages "mouse, keys and windows of that X server, and what tells which widget is where" \
    xdotool openbox dbus-daemon at-spi2-core python3-gi
  install_browser_packages
}

# The browser and what drives it; npm may have come with a Node.js of its own.
install_browser_packages() {
  install_packages "the browser in which the cockpit's page is tested" chromium fonts-liberation
  command -v npm >/dev/null || install_packages "what drives the browser" nodejs npm
}

install_plot_packages() {
  install_packages "the program that draws the plots of the aircraft" gnuplot-nox
}

install_check_packages() {
  install_packages "the formatter, the linter and the fuzzer" \
    clang-14 clang-format-14 clang-tidy-14 clang-tools-14 libclang-rt-14-dev
  install_windows_packages
  install_packages "Wine to run what is built for Windows, and the sources of the test library" \
    wine wine64 googletest
}

install_windows_packages() {
  install_packages "the Windows compilers" g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix
  install_packages "what the libraries of the Windows programs are made with" dpkg-dev \
    libz-mingw-w64-dev
  install_packages "what SQLite's one source file is made by" tcl
  install_packages "the web server of the cockpit in the browser on Windows" libboost-dev
  install_packages "the program that makes the Windows installer" nsis
}
