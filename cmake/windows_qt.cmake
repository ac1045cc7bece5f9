# The window in the Windows cross build: finds the Qt for Windows that scripts/build-qt-windows
# makes once per machine, or turns the window off and says why.
if(DEFINED ENV{VORNA_QT_WINDOWS} AND NOT "$ENV{VORNA_QT_WINDOWS}" STREQUAL "")
    set(vorna_qt_default "$ENV{VORNA_QT_WINDOWS}")
else()
    set(vorna_qt_default /var/cache/vorna/qt-6.4.2-mingw)
endif()
set(VORNA_QT_WINDOWS ${vorna_qt_default} CACHE PATH "Qt for Windows from scripts/build-qt-windows")

# The stamp is written last: a folder without it is a build that did not finish.
if(NOT EXISTS ${VORNA_QT_WINDOWS}/vorna-qt-complete)
    message(WARNING "vorna.exe (the window) is not built: no Qt for Windows in "
        "${VORNA_QT_WINDOWS}; scripts/build-qt-windows makes it. Only vorna-batch.exe is built.")
    set(VORNA_GUI OFF)
    return()
endif()
message(STATUS "vorna.exe (the window) uses the Qt for Windows in ${VORNA_QT_WINDOWS}")
list(APPEND CMAKE_FIND_ROOT_PATH ${VORNA_QT_WINDOWS})
list(APPEND CMAKE_PREFIX_PATH ${VORNA_QT_WINDOWS})
# moc, rcc and uic are the build machine's, of the same version.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)

# This Qt has no Svg module: the icon bar gets PNG pictures, drawn from the SVG files at build
# time, under the names the window asks for (Qt reads a picture's format from its content).
# Beside them go Qt's Italian translations and a qt.conf that points Qt's translations folder
# into the program, so the window loads them the way it does on Linux.
function(vorna_windows_resources output)
    find_program(VORNA_RSVG rsvg-convert REQUIRED)
    set(dir ${CMAKE_BINARY_DIR}/windows-resources)
    file(GLOB svgs CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/ui/qt/icons/*.svg)
    set(entries "")
    foreach(svg ${svgs})
        get_filename_component(name ${svg} NAME_WE)
        set(png ${dir}/icons/${name}.png)
        add_custom_command(OUTPUT ${png}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${dir}/icons
            COMMAND ${VORNA_RSVG} -w 48 -h 48 -o ${png} ${svg}
            DEPENDS ${svg} VERBATIM)
        string(APPEND entries "<file alias=\"icons/${name}.svg\">icons/${name}.png</file>\n")
    endforeach()
    set(qm /usr/share/qt6/translations/qtbase_it.qm)
    if(NOT EXISTS ${qm})
        message(FATAL_ERROR "${qm} is missing: install qt6-translations-l10n")
    endif()
    configure_file(${qm} ${dir}/translations/qtbase_it.qm COPYONLY)
    file(WRITE ${dir}/qt.conf "[Paths]\nTranslations=:/translations\n")
    file(WRITE ${dir}/windows.qrc "<RCC>\n<qresource prefix=\"/\">\n${entries}"
        "<file>translations/qtbase_it.qm</file>\n"
        "<file alias=\"qt/etc/qt.conf\">qt.conf</file>\n</qresource>\n</RCC>\n")
    qt_add_resources(resources ${dir}/windows.qrc)
    set(${output} ${resources} PARENT_SCOPE)
endfunction()
