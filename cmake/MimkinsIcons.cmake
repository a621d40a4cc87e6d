# The application's icon as pictures, drawn by the program itself without a display.

# mimkins_icons(PROGRAM SIDES pixels...)
function(mimkins_icons program)
    cmake_parse_arguments(ARG "" "" "SIDES" ${ARGN})
    set(files "")
    foreach(side IN LISTS ARG_SIDES)
        set(folder ${CMAKE_BINARY_DIR}/icons/${side}x${side})
        set(file ${folder}/app.mimkins.png)
        file(MAKE_DIRECTORY ${folder})
        # The program gets a home of its own, so that a build reads nothing of the builder's.
        add_custom_command(
            OUTPUT ${file}
            COMMAND ${CMAKE_COMMAND} -E env HOME=${CMAKE_BINARY_DIR}/icons --unset=XDG_CONFIG_HOME
                QT_QPA_PLATFORM=offscreen $<TARGET_FILE:${program}> --home ${CMAKE_BINARY_DIR}/icons
                render icon --size ${side} --output ${file}
            DEPENDS ${program}
            COMMENT "Drawing the icon with ${side} pixels"
            VERBATIM)
        list(APPEND files ${file})
        install(
            FILES ${file}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${side}x${side}/apps)
    endforeach()
    add_custom_target(${program}_icons ALL DEPENDS ${files})
endfunction()
