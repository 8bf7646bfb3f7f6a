# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package, made by CPack (`make package`).
#
# The game keeps its folder as the build has it: the program, Config.brx,
# music/ and carta.wav together in lib/games/lesta, and games/lesta, on the
# PATH, a link to the program. (Qt finds the program's folder through the
# link, for it reads /proc/self/exe.) Beside them: the menu entry, its icon,
# the AppStream description, the manual page, and the copyright file in
# Debian's machine-readable format.

set(lesta_cartella_programma lib/games/lesta)
set(lesta_pacchetto ${PROJECT_BINARY_DIR}/pacchetto)
get_directory_property(lesta_file_canzoni DIRECTORY ${PROJECT_SOURCE_DIR}/tools DEFINITION lesta_file_canzoni)

install(TARGETS lesta RUNTIME DESTINATION ${lesta_cartella_programma})
# CPack's strip (CPACK_STRIP_FILES) keeps the compiler's notes; like Debian's
# own packaging tools, take them out too.
install(CODE "
  if(CMAKE_INSTALL_DO_STRIP)
    execute_process(COMMAND \"${CMAKE_STRIP}\" --remove-section=.comment --remove-section=.note
      \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${lesta_cartella_programma}/lesta\"
      COMMAND_ERROR_IS_FATAL ANY)
  endif()")
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
# The AppStream data names the version being packaged among its releases.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/lesta.gioco.Lesta.metainfo.xml)
file(READ ${CMAKE_CURRENT_LIST_DIR}/lesta.gioco.Lesta.metainfo.xml lesta_metainfo)
string(FIND "${lesta_metainfo}" "<release version=\"${PROJECT_VERSION}\"" lesta_rilascio)
if(lesta_rilascio EQUAL -1)
  install(CODE "message(FATAL_ERROR \"lesta.gioco.Lesta.metainfo.xml has no <release> for ${PROJECT_VERSION}\")")
endif()
install(FILES ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION share/doc/lesta)

# The manual page and the changelog go in compressed, as Debian wants them.
function(lesta_installa_compresso nome destinazione)
  set(origine ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${nome})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${origine})
  execute_process(COMMAND gzip -9 -n -c ${origine}
    OUTPUT_FILE ${lesta_pacchetto}/${nome}.gz COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${lesta_pacchetto}/${nome}.gz DESTINATION ${destinazione})
endfunction()
lesta_installa_compresso(lesta.6 share/man/man6)
lesta_installa_compresso(changelog share/doc/lesta)
# The changelog's first entry is the version being packaged.
add_test(NAME Pacchetto.IlChangelogApreConLaVersione
  COMMAND sh -c "head -n 1 \"$1\" | grep -q \"^lesta ($2) \"" sh ${CMAKE_CURRENT_LIST_DIR}/changelog ${PROJECT_VERSION})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lesta)
set(CPACK_PACKAGE_CONTACT "Lesta maintainers <lesta@lesta.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "fishing card game of the Trieste deck, against the computer")
set(CPACK_PACKAGE_DESCRIPTION "\
Lesta is an Italian fishing card game for one player against the computer,
played with the forty cards of the Trieste deck. A card played takes the
table card of the same value, or table cards that add up to it; taking the
whole table is a sweep.

Play a single hand or a match to 11 or 21 points. The table comes with
background music, a card sound, three play rates, and the rules in English
and Italian.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries the program links, as dpkg-shlibdeps finds them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The sound libraries are loaded at the first sound, not linked, so
# dpkg-shlibdeps cannot see them: they are named here.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libsdl2-2.0-0 (>= 2.0.16), libsdl2-mixer-2.0-0 (>= 2.6.0), libfluidsynth3")
# The songs sound with a General MIDI soundfont (see font_gm_di_sistema in
# sound/sdl/media_sdl.cpp): the small TimGM6mb first, which keeps the game's
# memory low, else any GM font behind Debian's default-GM alternative.
# Recommended, not required: without one the game plays in full and only the
# music is silent; apt installs it by default all the same.
# Qt's Wayland plugin, so that on a Wayland desktop the game is a client of
# its own: without it Qt falls back to its X11 plugin, which libqt6gui6
# carries, and the game runs through the desktop's XWayland.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "timgm6mb-soundfont | sf2-soundfont-gm | sf3-soundfont-gm, qt6-wayland")
include(CPack)
