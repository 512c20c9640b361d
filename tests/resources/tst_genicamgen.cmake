# Runs the node map generator into OUT_DIR and fails for every checked-in file it would change,
# and for every generated file that is not checked in.
file(REMOVE_RECURSE "${OUT_DIR}")
file(MAKE_DIRECTORY "${OUT_DIR}")
execute_process(
    COMMAND "${PYTHON}" "${SOURCE_DIR}/tools/genicamgen/build.py" "${OUT_DIR}"
    RESULT_VARIABLE status
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "the generator failed (${status}):\n${output}")
endif()
file(GLOB_RECURSE generated RELATIVE "${OUT_DIR}" "${OUT_DIR}/*")
list(LENGTH generated count)
if(count EQUAL 0)
    message(FATAL_ERROR "the generator wrote nothing into ${OUT_DIR}")
endif()
set(differing "")
foreach(file IN LISTS generated)
    if(NOT EXISTS "${SOURCE_DIR}/${file}")
        list(APPEND differing "${file} (not checked in)")
        continue()
    endif()
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E compare_files "${OUT_DIR}/${file}" "${SOURCE_DIR}/${file}"
        RESULT_VARIABLE same)
    if(NOT same EQUAL 0)
        list(APPEND differing "${file}")
    endif()
endforeach()
if(differing)
    string(REPLACE ";" "\n  " list "${differing}")
    message(FATAL_ERROR "the checked-in files differ from what tools/genicamgen makes:\n  ${list}\n"
                        "Change the generator, then run: python3 tools/genicamgen/build.py")
endif()
message(STATUS "${count} generated files match the checked-in ones")
