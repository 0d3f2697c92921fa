# Fails when a layer includes from a layer above it, or the core or session include
# Qt modules they must not use. Run with -DSRC=<the src folder>.
#
# An include "a/b.h" is resolved the way the compiler would find it: in the core
# (src/core), in the session ("session/..."), in the window (src/gui) or in the
# command-line tool (src/cli). Each layer may use the layers below it only.
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
        get_filename_component(dir ${f} DIRECTORY)
        file(STRINGS ${f} lines REGEX "^#include")
        foreach(line ${lines})
            if(DEFINED forbidden_qt_${layer} AND line MATCHES "^${forbidden_qt_${layer}}")
                string(APPEND failures "${f}: ${line}\n")
            endif()
            if(NOT line MATCHES "^#include \"([^\"]+)\"")
                continue()
            endif()
            set(included ${CMAKE_MATCH_1})
            if(EXISTS ${dir}/${included} AND NOT included MATCHES "/")
                continue() # beside the including file
            elseif(EXISTS ${SRC}/core/${included})
                set(owner core)
            elseif(included MATCHES "^session/")
                set(owner session)
            elseif(EXISTS ${SRC}/gui/${included})
                set(owner gui)
            elseif(EXISTS ${SRC}/cli/${included})
                set(owner cli)
            else()
                continue() # generated or from outside the tree
            endif()
            if(NOT owner IN_LIST allowed_${layer})
                string(APPEND failures "${f}: ${line} (${owner} from ${layer})\n")
            endif()
        endforeach()
    endforeach()
endforeach()
if(failures)
    message(FATAL_ERROR "Includes against the layering:\n${failures}")
endif()
message(STATUS "layering: every include points downward")
