# The English translation is whole: lupdate, run over the sources into a copy of the
# committed .ts file, finds no text without English (unfinished), none that no source
# says any more (obsolete or vanished), and nothing to add or take away.
# Run by CTest with -DLUPDATE=... -DTS=... -DSOURCES=a;b;... -DINCLUDE=<src> -DWORK=<folder>.
file(MAKE_DIRECTORY ${WORK})
set(copy ${WORK}/parlex_en.ts)
configure_file(${TS} ${copy} COPYONLY)
execute_process(
    COMMAND ${LUPDATE} -source-language ru_RU -target-language en -locations none
            -I ${INCLUDE} ${SOURCES}
            -ts ${copy}
    RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE out)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "lupdate failed: ${out}")
endif()
file(READ ${copy} updated)
foreach(mark unfinished obsolete vanished)
    string(FIND "${updated}" "type=\"${mark}\"" at)
    if(NOT at EQUAL -1)
        string(SUBSTRING "${updated}" ${at} 300 around)
        message(FATAL_ERROR "parlex_en.ts has a ${mark} entry; run the target "
                            "update_translations and give every text its English:\n...${around}")
    endif()
endforeach()
file(READ ${TS} committed)
if(NOT updated STREQUAL committed)
    message(FATAL_ERROR "lupdate changes parlex_en.ts: run the target update_translations\n${out}")
endif()
