# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` puts in place, the files of the Debian package
# (debian/ builds it: `make package`).
#
# The game keeps its folder as the build has it: the program, Config.brx,
# music/ and carta.wav together in lib/games/lesta, and games/lesta, on the
# PATH, a link to the program. (Qt finds the program's folder through the
# link, for it reads /proc/self/exe.) Beside them: the menu entry, its icon,
# the AppStream description and the manual page. The copyright file and the
# changelog are the package's own, and debhelper installs them.

set(lesta_cartella_programma lib/games/lesta)
set(lesta_pacchetto ${PROJECT_BINARY_DIR}/pacchetto)
get_directory_property(lesta_file_canzoni DIRECTORY ${PROJECT_SOURCE_DIR}/tools DEFINITION lesta_file_canzoni)

install(TARGETS lesta RUNTIME DESTINATION ${lesta_cartella_programma})
install(FILES ${PROJECT_BINARY_DIR}/Config.brx ${PROJECT_BINARY_DIR}/carta.wav
  DESTINATION ${lesta_cartella_programma})
install(FILES ${lesta_file_canzoni} DESTINATION ${lesta_cartella_programma}/music)

file(MAKE_DIRECTORY ${lesta_pacchetto})
file(CREATE_LINK ../${lesta_cartella_programma}/lesta ${lesta_pacchetto}/lesta SYMBOLIC)
install(FILES ${lesta_pacchetto}/lesta DESTINATION games)

install(FILES ${CMAKE_CURRENT_LIST_DIR}/lesta.gioco.Lesta.desktop DESTINATION share/applications)
install(FILES ${PROJECT_SOURCE_DIR}/table/immagini/icona.svg
  DESTINATION share/icons/hicolor/scalable/apps RENAME lesta.svg)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/lesta.gioco.Lesta.metainfo.xml DESTINATION share/metainfo)
# The AppStream data names the version being installed among its releases.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/lesta.gioco.Lesta.metainfo.xml)
file(READ ${CMAKE_CURRENT_LIST_DIR}/lesta.gioco.Lesta.metainfo.xml lesta_metainfo)
string(FIND "${lesta_metainfo}" "<release version=\"${PROJECT_VERSION}\"" lesta_rilascio)
if(lesta_rilascio EQUAL -1)
  install(CODE "message(FATAL_ERROR \"lesta.gioco.Lesta.metainfo.xml has no <release> for ${PROJECT_VERSION}\")")
endif()
# The manual page goes in as it is; the package compresses it.
install(FILES ${CMAKE_CURRENT_LIST_DIR}/lesta.6 DESTINATION share/man/man6)
