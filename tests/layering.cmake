# Fails when a layer includes from a layer above it, or the core or session include
# Qt modules they must not use. Run with -DSRC=<the src folder>.
#
# Every include of the tree names its layer first ("core/npc/npcfile.h",
# "gui/mainwindow/bytegrid.h"), so that two folders of one name in two layers cannot
# be confused. Each layer may use the layers below it only.
cmake_policy(SET CMP0057 NEW) # if(... IN_LIST ...)
set(allowed_core "core")
set(allowed_session "core;session")
set(allowed_gui "core;session;gui")
set(allowed_cli "core;cli")
set(forbidden_qt_core "#include <Q")
set(forbidden_qt_session
    "#include <Q(Widget|Gui|Application|Action|Menu|Label|Dialog|Painter|Color|Font|Icon|Pixmap|Clipboard|KeyEvent|MouseEvent)")

set(failures "")
foreach(layer core session gui cli)
    file(GLOB_RECURSE files ${SRC}/${layer}/*.h ${SRC}/${layer}/*.cpp)
    foreach(f ${files})
        file(STRINGS ${f} lines REGEX "^#include")
        foreach(line ${lines})
            if(DEFINED forbidden_qt_${layer} AND line MATCHES "^${forbidden_qt_${layer}}")
                string(APPEND failures "${f}: ${line}\n")
            endif()
            if(NOT line MATCHES "^#include \"([^\"]+)\"")
                continue()
            endif()
            set(included ${CMAKE_MATCH_1})
            if(NOT included MATCHES "/")
                continue() # beside the including file, or generated
            endif()
            string(REGEX MATCH "^[^/]+" owner ${included})
            if(NOT owner MATCHES "^(core|session|gui|cli)$" OR NOT EXISTS ${SRC}/${included})
                string(APPEND failures "${f}: ${line} (names no layer)\n")
                continue()
            endif()
            if(NOT owner IN_LIST allowed_${layer})
                string(APPEND failures "${f}: ${line} (${owner} from ${layer})\n")
            endif()
        endforeach()
    endforeach()
endforeach()
# Inside the window each part stands on its own: only the main window itself and the
# program's start (main.cpp, app/) use the main window's folder.
file(GLOB_RECURSE gui_files ${SRC}/gui/*.h ${SRC}/gui/*.cpp)
foreach(f ${gui_files})
    file(RELATIVE_PATH rel ${SRC}/gui ${f})
    if(rel MATCHES "^(mainwindow|app)/" OR rel STREQUAL "main.cpp")
        continue()
    endif()
    file(STRINGS ${f} lines REGEX "^#include \"gui/mainwindow/")
    foreach(line ${lines})
        string(APPEND failures "${f}: ${line} (the main window's own folder)\n")
    endforeach()
endforeach()

if(failures)
    message(FATAL_ERROR "Includes against the layering:\n${failures}")
endif()
message(STATUS "layering: every include points downward")
