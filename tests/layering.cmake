# Fails when a layer includes from a layer above it, or the core or session include
# Qt modules they must not use. Run with -DSRC=<the src folder>.
set(rules
    "core|#include \"(session|gui|cli)/|#include <Q"
    "session|#include \"(gui|cli|mainwindow|prompts|speech|editor|settings|app)/|#include <Q(Widget|Gui|Application|Action|Menu|Label|Dialog|Painter|Color|Font|Icon|Pixmap|Clipboard|KeyEvent|MouseEvent)"
    "cli|#include \"(session|gui|mainwindow|prompts)/|#include <Q")
set(failures "")
foreach(rule ${rules})
    string(REPLACE "|#include" ";#include" parts "${rule}")
    list(GET parts 0 layer)
    list(SUBLIST parts 1 -1 patterns)
    file(GLOB_RECURSE files ${SRC}/${layer}/*.h ${SRC}/${layer}/*.cpp)
    foreach(f ${files})
        file(STRINGS ${f} lines REGEX "^#include")
        foreach(line ${lines})
            foreach(pattern ${patterns})
                if(line MATCHES "^${pattern}")
                    string(APPEND failures "${f}: ${line}\n")
                endif()
            endforeach()
        endforeach()
    endforeach()
endforeach()
if(failures)
    message(FATAL_ERROR "Includes against the layering:\n${failures}")
endif()
message(STATUS "layering: every include points downward")
