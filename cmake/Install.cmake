# What `cmake --install` puts where, by the freedesktop and Debian conventions:
#   bin/curvemill                 the launcher: runs the program in $XDG_DATA_HOME/curvemill
#   bin/curvemill-cli
#   libexec/curvemill/curvemill   the program itself (it works in its current directory)
#   share/curvemill/              the help archive and the starter history
#   share/applications, share/metainfo, share/mime/packages, share/icons/hicolor, share/man/man1
include(GNUInstallDirs)

set(desktop_id org.curvemill.CurveMill)
set(icon_sizes 16 22 24 32 48 64 128 256)

# The icon theme's PNG sizes, rendered from the scalable icon at build time.
set(icon_dir ${PROJECT_BINARY_DIR}/icons)
set(icon_pngs "")
foreach(size IN LISTS icon_sizes)
    list(APPEND icon_pngs ${icon_dir}/${size}x${size}/apps/curvemill.png)
endforeach()
add_executable(curvemill_icon_pngs ${PROJECT_SOURCE_DIR}/shell/tools/IconPngs.cpp)
target_link_libraries(curvemill_icon_pngs PRIVATE Qt6::Gui Qt6::Svg)
curvemill_target_options(curvemill_icon_pngs)
add_custom_command(OUTPUT ${icon_pngs}
    # A build step, not a test: in a sanitizer build the toolkit's caches left at exit must not
    # stop the build.
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:curvemill_icon_pngs> ${PROJECT_SOURCE_DIR}/resources/curvemill.svg
            ${icon_dir} ${icon_sizes}
    DEPENDS curvemill_icon_pngs ${PROJECT_SOURCE_DIR}/resources/curvemill.svg
    COMMENT "Rendering the icon's PNG sizes"
    VERBATIM)

# Man pages are installed compressed, as Debian keeps them.
set(man_pages "")
foreach(page curvemill.1 curvemill-cli.1)
    set(compressed ${PROJECT_BINARY_DIR}/man/${page}.gz)
    add_custom_command(OUTPUT ${compressed}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/man
        COMMAND sh -c "gzip -9n < \"$1\" > \"$2\"" sh ${PROJECT_SOURCE_DIR}/resources/man/${page}
                ${compressed}
        DEPENDS ${PROJECT_SOURCE_DIR}/resources/man/${page}
        VERBATIM)
    list(APPEND man_pages ${compressed})
endforeach()
add_custom_target(curvemill_desktop_files ALL DEPENDS ${icon_pngs} ${man_pages})

configure_file(${PROJECT_SOURCE_DIR}/shell/launcher/curvemill.in
               ${PROJECT_BINARY_DIR}/launcher/curvemill @ONLY)

install(PROGRAMS ${PROJECT_BINARY_DIR}/launcher/curvemill DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS curvemill-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS curvemill RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/curvemill)
install(FILES ${CURVEMILL_HELP_ARCHIVE} ${PROJECT_SOURCE_DIR}/resources/Graph.dat
        DESTINATION ${CMAKE_INSTALL_DATADIR}/curvemill)
install(FILES ${PROJECT_SOURCE_DIR}/resources/desktop/${desktop_id}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/resources/desktop/${desktop_id}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
# The graph documents' type, so a file manager opens *.curvemill with the program.
install(FILES ${PROJECT_SOURCE_DIR}/resources/desktop/${desktop_id}.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${PROJECT_SOURCE_DIR}/resources/curvemill.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size IN LISTS icon_sizes)
    install(FILES ${icon_dir}/${size}x${size}/apps/curvemill.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
