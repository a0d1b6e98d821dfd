# A Debian package made by CPack from the install rules of cmake/Install.cmake:
#   cd build && cpack -G DEB
# writes tessaly_VERSION_ARCH.deb into the build folder. The package's
# dependencies are computed by dpkg-shlibdeps (Debian package dpkg-dev) from
# the libraries the programs link.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaly)
set(CPACK_PACKAGE_VENDOR "Tessaly developers")
set(CPACK_PACKAGE_CONTACT "Tessaly developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Sudoku program that explains every deduction")
set(CPACK_PACKAGE_DESCRIPTION
  "Tessaly reads numbered 9 x 9 Sudoku puzzles from collection files and shows
the candidate digits of every blank cell. It solves a puzzle step by step or
all at once with six numbered deduction rules, falling back to guessing with
retraction when the rules stall, and explains every finding in plain
sentences in an event log. It also gives hints, lets you solve by hand with
validation and undo, creates new puzzles and exports a puzzle with its
solution as CSV, text or spreadsheet files.

The package holds the desktop program tessaly, the command line tessaly-cli
and a collection of 125 puzzles.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Tessaly developers")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
