# What the CMake script tests share: their required variables, a fresh temporary folder of
# their own in `work`, a `failures` list, and finish(), which removes the folder and fails the
# test with every collected failure.
#
#   include(.../scripttest.cmake)
#   script_test_begin(tst_name VAR1 VAR2 ...)

macro(script_test_begin name)
    set(script_test_name "${name}")
    foreach(var ${ARGN})
        if(NOT DEFINED ${var} OR "${${var}}" STREQUAL "")
            message(FATAL_ERROR "${name}: ${var} is not set")
        endif()
    endforeach()
    if(DEFINED ENV{TMPDIR} AND IS_DIRECTORY "$ENV{TMPDIR}")
        set(tmp_root "$ENV{TMPDIR}")
    else()
        set(tmp_root "/tmp")
    endif()
    string(RANDOM LENGTH 10 ALPHABET "abcdefghijklmnopqrstuvwxyz0123456789" suffix)
    set(work "${tmp_root}/${name}-${suffix}")
    if(EXISTS "${work}")
        message(FATAL_ERROR "${name}: ${work} exists already")
    endif()
    file(MAKE_DIRECTORY "${work}/home" "${work}/config")
    # Executables find themselves through /proc/self/exe, which has no symbolic links.
    get_filename_component(work "${work}" REALPATH)
    set(failures "")
endmacro()

function(finish)
    file(REMOVE_RECURSE "${work}")
    if(failures)
        list(JOIN failures "\n  " text)
        message(FATAL_ERROR "${script_test_name} failed:\n  ${text}")
    endif()
    message(STATUS "${script_test_name} passed")
endfunction()
