# cmake -DBUILD_DIR=... -DCONFIG=... -DBINDIR=bin -DLIBDIR=lib -DDATADIR=share -P tst_install.cmake
#
# Installs the build into a fresh temporary prefix, takes a screenshot with the installed viewer
# and checks from its log that the plug-in and the filter file came from that prefix, not from
# the build tree or from the copy built into the plug-in.

cmake_minimum_required(VERSION 3.16)
include(${CMAKE_CURRENT_LIST_DIR}/../scripttest.cmake)
script_test_begin(tst_install BUILD_DIR BINDIR LIBDIR DATADIR)
set(prefix "${work}/prefix")
file(MAKE_DIRECTORY "${prefix}")

set(config_args "")
if(CONFIG)
    set(config_args --config "${CONFIG}")
endif()
execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}" ${config_args}
    RESULT_VARIABLE install_result
    OUTPUT_VARIABLE install_output
    ERROR_VARIABLE install_output)
if(NOT install_result EQUAL 0)
    list(APPEND failures "cmake --install failed (${install_result}):\n${install_output}")
    finish()
endif()

set(viewer "${prefix}/${BINDIR}/vantoviewer")
set(plugin "${prefix}/${LIBDIR}/vantoviewer/plugins/libNodescope.so")
set(filter "${prefix}/${DATADIR}/vanto/viewer/Default_Filter.xml")
set(sdk_config "${prefix}/${LIBDIR}/cmake/VantoSDK/VantoSDKConfig.cmake")
set(sdk_header "${prefix}/include/vanto/core/iplugin.h")
foreach(file "${viewer}" "${plugin}" "${filter}" "${sdk_config}" "${sdk_header}")
    if(NOT EXISTS "${file}")
        list(APPEND failures "not installed: ${file}")
    endif()
endforeach()

# Nothing installed may lean on the build tree: the loader must find the SDK library through
# $ORIGIN, below the prefix.
find_program(LDD ldd)
get_filename_component(installed_sdk "${prefix}/${LIBDIR}/libvantosdk.so" REALPATH)
if(LDD)
    foreach(binary "${viewer}" "${plugin}")
        execute_process(COMMAND "${LDD}" "${binary}" OUTPUT_VARIABLE ldd_output
            ERROR_VARIABLE ldd_output RESULT_VARIABLE ldd_result)
        string(REGEX MATCH "libvantosdk[^\n]*=> ([^ \n]+)" match "${ldd_output}")
        set(sdk_path "${CMAKE_MATCH_1}")
        if(sdk_path)
            # The loader reports it as found, through $ORIGIN: <prefix>/bin/../lib/...
            get_filename_component(sdk_path "${sdk_path}" REALPATH)
        endif()
        if(NOT ldd_result EQUAL 0)
            list(APPEND failures "ldd ${binary} failed:\n${ldd_output}")
        elseif(NOT sdk_path STREQUAL installed_sdk)
            list(APPEND failures
                "${binary} does not load libvantosdk.so from the prefix:\n${ldd_output}")
        endif()
    endforeach()
else()
    message(STATUS "ldd not found: the loader paths are checked only by running the viewer")
endif()

if(EXISTS "${viewer}")
    run_viewer_screenshot("${viewer}" "the installed viewer")
    string(FIND "${run_output}" "loaded ${plugin}" plugin_at)
    if(plugin_at EQUAL -1)
        list(APPEND failures
            "the log does not name the installed plug-in ${plugin}:\n${run_output}")
    endif()
    string(FIND "${run_output}" "read ${filter}" filter_at)
    if(filter_at EQUAL -1)
        list(APPEND failures
            "the log does not name the installed filter file ${filter}:\n${run_output}")
    endif()
endif()

# A plug-in from outside this tree: the example, built against the installed SDK alone, then
# loaded by the installed viewer, which must show its panel.
if(EXAMPLE_DIR AND EXISTS "${sdk_config}")
    set(example_build "${work}/example-build")
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -S "${EXAMPLE_DIR}" -B "${example_build}"
            "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_INSTALL_PREFIX=${prefix}"
            -DCMAKE_BUILD_TYPE=Release
        RESULT_VARIABLE example_result
        OUTPUT_VARIABLE example_output
        ERROR_VARIABLE example_output)
    if(example_result EQUAL 0)
        execute_process(
            COMMAND "${CMAKE_COMMAND}" --build "${example_build}" --target install
            RESULT_VARIABLE example_result
            OUTPUT_VARIABLE example_output
            ERROR_VARIABLE example_output)
    endif()
    set(example_plugin "${prefix}/${LIBDIR}/vantoviewer/plugins/libCameraTemperature.so")
    if(NOT example_result EQUAL 0)
        list(APPEND failures "the example plug-in did not build:\n${example_output}")
    elseif(NOT EXISTS "${example_plugin}")
        list(APPEND failures "the example plug-in was not installed at ${example_plugin}")
    else()
        execute_process(
            COMMAND "${viewer}" --simulate --panel "Camera Temperature"
                --screenshot "${work}/example.png"
            WORKING_DIRECTORY "${work}"
            RESULT_VARIABLE run_result
            OUTPUT_VARIABLE run_output
            ERROR_VARIABLE run_output
            TIMEOUT 90)
        string(FIND "${run_output}" "loaded ${example_plugin}" example_at)
        string(FIND "${run_output}" "no panel" missing_at)
        if(NOT run_result EQUAL 0)
            list(APPEND failures
                "the viewer with the example plug-in ended with ${run_result}:\n${run_output}")
        elseif(example_at EQUAL -1)
            list(APPEND failures "the viewer did not load ${example_plugin}:\n${run_output}")
        elseif(NOT missing_at EQUAL -1)
            list(APPEND failures "the example's panel did not appear:\n${run_output}")
        else()
            message(STATUS "the example plug-in built, loaded and showed its panel")
        endif()
    endif()
elseif(NOT EXAMPLE_DIR)
    message(STATUS "EXAMPLE_DIR not given: the example plug-in is not checked")
endif()

finish()
