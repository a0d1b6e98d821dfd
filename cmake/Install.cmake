# Install rules: the programs into bin/, the shipped data into share/tessaly
# (where an installed program looks for it: ../share/tessaly from its own
# folder), and the desktop integration files (launcher, icons, AppStream
# metainfo, manual page). Included at the end of the top CMakeLists.txt, after
# the targets exist. cmake/Package.cmake turns the same rules into a .deb.

set(TESSALY_APP_ID org.tessaly.Tessaly)
set(TESSALY_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(TESSALY_PACKAGING_BINARY_DIR ${PROJECT_BINARY_DIR}/packaging)

# The programs.
install(TARGETS tessaly-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TESSALY_BUILD_UI)
  install(TARGETS tessaly RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# Read-only data: the default collection, Permu.txt, the colour schemes and the
# help page. The script that rebuilds the collection stays in the source tree.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/
  DESTINATION ${CMAKE_INSTALL_DATADIR}/tessaly
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
  PATTERN make-puzzles.sh EXCLUDE)

# The launcher, the icon and the software-centre entry belong to the window.
if(TESSALY_BUILD_UI)
  install(FILES ${TESSALY_PACKAGING_DIR}/${TESSALY_APP_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

  # The PNG sizes were rendered once from the SVG and are kept in the
  # repository, so a build needs no SVG renderer:
  #   rsvg-convert -w S -h S org.tessaly.Tessaly.svg -o SxS/org.tessaly.Tessaly.png
  install(FILES ${TESSALY_PACKAGING_DIR}/icons/${TESSALY_APP_ID}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  foreach(size IN ITEMS 16 32 48 64 128 256)
    install(FILES ${TESSALY_PACKAGING_DIR}/icons/${size}x${size}/${TESSALY_APP_ID}.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()

  # AppStream wants screenshots as public web addresses, and the project has
  # none yet: the screenshots of docs/ are listed only when a packager names
  # the web folder that holds them.
  set(TESSALY_SCREENSHOT_BASE_URL "" CACHE STRING
    "Web address of a folder holding autosolve.png, create.png and manual.png (the pictures of docs/); when set, the AppStream metainfo lists them as screenshots")
  set(TESSALY_METAINFO_SCREENSHOTS "")
  if(TESSALY_SCREENSHOT_BASE_URL)
    string(REGEX REPLACE "/+$" "" base "${TESSALY_SCREENSHOT_BASE_URL}")
    string(CONCAT TESSALY_METAINFO_SCREENSHOTS
      "  <screenshots>\n"
      "    <screenshot type=\"default\">\n"
      "      <caption>A stepped solve: the candidates of every cell and the event log narrating each step</caption>\n"
      "      <image>${base}/autosolve.png</image>\n"
      "    </screenshot>\n"
      "    <screenshot>\n"
      "      <caption>Creating puzzles</caption>\n"
      "      <image>${base}/create.png</image>\n"
      "    </screenshot>\n"
      "    <screenshot>\n"
      "      <caption>Solving by hand with hints</caption>\n"
      "      <image>${base}/manual.png</image>\n"
      "    </screenshot>\n"
      "  </screenshots>\n")
  endif()
  configure_file(${TESSALY_PACKAGING_DIR}/${TESSALY_APP_ID}.metainfo.xml.in
    ${TESSALY_PACKAGING_BINARY_DIR}/${TESSALY_APP_ID}.metainfo.xml @ONLY)
  install(FILES ${TESSALY_PACKAGING_BINARY_DIR}/${TESSALY_APP_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()

# The manual pages of tessaly-cli and tessaly, made from their --help and
# --version output (the same usage text the programs print; for tessaly-cli
# every command's options) plus the sections of packaging/tessaly-cli.h2m,
# compressed as Debian wants.
find_program(TESSALY_HELP2MAN help2man)
find_program(TESSALY_GZIP gzip)
if(TESSALY_HELP2MAN AND TESSALY_GZIP)
  set(man_page ${TESSALY_PACKAGING_BINARY_DIR}/tessaly-cli.1)
  add_custom_command(
    OUTPUT ${man_page}.gz
    COMMAND ${TESSALY_HELP2MAN} --no-info --section=1
      "--name=solve, create and export Sudoku puzzles without a window"
      --include=${TESSALY_PACKAGING_DIR}/tessaly-cli.h2m
      --output=${man_page} $<TARGET_FILE:tessaly-cli>
    COMMAND ${TESSALY_GZIP} -9nf ${man_page}
    DEPENDS tessaly-cli ${TESSALY_PACKAGING_DIR}/tessaly-cli.h2m
    COMMENT "Writing the manual page of tessaly-cli"
    VERBATIM)
  set(man_pages ${man_page}.gz)
  # The window's page, from its own --help and --version (printed without a
  # display).
  if(TESSALY_BUILD_UI)
    set(window_page ${TESSALY_PACKAGING_BINARY_DIR}/tessaly.1)
    add_custom_command(
      OUTPUT ${window_page}.gz
      COMMAND ${TESSALY_HELP2MAN} --no-info --section=1
        "--name=solve Sudoku puzzles step by step, with every deduction explained"
        --output=${window_page} $<TARGET_FILE:tessaly>
      COMMAND ${TESSALY_GZIP} -9nf ${window_page}
      DEPENDS tessaly
      COMMENT "Writing the manual page of tessaly"
      VERBATIM)
    list(APPEND man_pages ${window_page}.gz)
  endif()
  add_custom_target(tessaly_manpage ALL DEPENDS ${man_pages})
  install(FILES ${man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
else()
  message(STATUS "help2man or gzip not found: the manual page of tessaly-cli is not built (Debian: apt-get install help2man)")
endif()

include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)
