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

# Runs `viewer --simulate --screenshot` with the user's settings out of reach and the build
# tree's libraries out of the path, adds a failure when it ends badly or saves no picture, and
# leaves what it printed in `run_output`. `what` names the viewer in failures.
function(run_viewer_screenshot viewer what)
    set(ENV{HOME} "${work}/home")
    set(ENV{XDG_CONFIG_HOME} "${work}/config")
    set(ENV{QT_QPA_PLATFORM} "offscreen")
    set(ENV{QT_QUICK_BACKEND} "software")
    set(ENV{QT_LOGGING_RULES} "vanto.viewer.plugins.info=true;nodescope.filter.info=true")
    unset(ENV{LD_LIBRARY_PATH})
    unset(ENV{QT_PLUGIN_PATH})
    set(shot "${work}/shot.png")
    file(REMOVE "${shot}")
    execute_process(COMMAND "${viewer}" --simulate --screenshot "${shot}"
        WORKING_DIRECTORY "${work}"
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output
        TIMEOUT 120)
    if(NOT result EQUAL 0)
        list(APPEND failures "${what} ended with ${result}:\n${output}")
    endif()
    set(shot_size 0)
    if(EXISTS "${shot}")
        file(SIZE "${shot}" shot_size)
    endif()
    if(NOT shot_size GREATER 0)
        list(APPEND failures "${what} saved no screenshot, or an empty one:\n${output}")
    endif()
    set(failures "${failures}" PARENT_SCOPE)
    set(run_output "${output}" PARENT_SCOPE)
endfunction()
