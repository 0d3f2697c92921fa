# Installation with the usual Linux layout, and the Debian package (`make package`).
set(DESKTOP_DIR ${PROJECT_SOURCE_DIR}/resources/desktop)

# Windows programs live in one folder with everything they need; Linux ones in bin/.
if(WIN32)
    install(TARGETS parlex-cli RUNTIME DESTINATION .)
else()
    install(TARGETS parlex-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
# On Windows the window installs itself beside its Qt (src/gui); the rest is Linux's.
if(TARGET parlex AND NOT WIN32)
    install(TARGETS parlex RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES ${PROJECT_SOURCE_DIR}/resources/Parlex.html
                  ${PROJECT_SOURCE_DIR}/resources/Parlex_en.html
            DESTINATION ${CMAKE_INSTALL_DATADIR}/parlex)
    install(FILES ${DESKTOP_DIR}/org.parlex.Parlex.desktop
            DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES ${DESKTOP_DIR}/org.parlex.Parlex.metainfo.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES ${DESKTOP_DIR}/org.parlex.Parlex.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
    install(FILES ${PROJECT_SOURCE_DIR}/resources/icons/org.parlex.Parlex.svg
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/resources/completion/parlex-cli
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

# The manual pages of parlex-cli, made from its --help and --version: the English one
# where man looks first, the Russian one where man looks for a Russian locale.
if(NOT WIN32)
    find_program(HELP2MAN help2man)
endif()
if(HELP2MAN)
    set(MAN_PAGES)
    foreach(language en ru)
        set(MAN_PAGE ${PROJECT_BINARY_DIR}/man/${language}/parlex-cli.1)
        if(language STREQUAL en)
            set(MAN_NAME "scripts, speech files and code lists of Jagged Alliance 2")
            set(MAN_FOLDER man1)
        else()
            set(MAN_NAME "скрипты, речевые файлы и списки кодов Jagged Alliance 2")
            set(MAN_FOLDER ru/man1)
        endif()
        add_custom_command(
            OUTPUT ${MAN_PAGE}.gz
            COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/man/${language}
            COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 PARLEX_LANG=${language}
                    ${HELP2MAN} --no-info --no-discard-stderr --section=1 --locale=C.UTF-8
                    "--name=${MAN_NAME}" --output=${MAN_PAGE} $<TARGET_FILE:parlex-cli>
            COMMAND gzip -n -9 -f ${MAN_PAGE}
            DEPENDS parlex-cli
            COMMENT "Manual page of parlex-cli (${language})"
            VERBATIM)
        list(APPEND MAN_PAGES ${MAN_PAGE}.gz)
        install(FILES ${MAN_PAGE}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/${MAN_FOLDER})
    endforeach()
    add_custom_target(manpage ALL DEPENDS ${MAN_PAGES})
elseif(NOT WIN32)
    message(WARNING "help2man not found: no manual page for parlex-cli")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME parlex)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "editor of the NPC scripts and speech files of Jagged Alliance 2")
set(CPACK_PACKAGE_DESCRIPTION
    "Parlex opens the behaviour scripts (.npc) and speech files (.edt) of Jagged Alliance 2 and
Unfinished Business, explains every field of a record in words and edits it. parlex-cli does
the same work from the command line, for a whole mod at once.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Parlex developers")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
# The libraries the programs link come from dpkg-shlibdeps. The program's own pictures
# are drawn at build time; Qt's SVG plug-ins only serve the desktop's icon themes in
# the file dialogs, so they are recommended, not required.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "xdg-utils, shared-mime-info, desktop-file-utils, qt6-translations-l10n, libqt6svg6")
include(CPack)
