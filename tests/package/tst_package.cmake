# cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DVERSION=... -P tst_package.cmake

cmake_minimum_required(VERSION 3.16)
include(${CMAKE_CURRENT_LIST_DIR}/../scripttest.cmake)
script_test_begin(tst_package BUILD_DIR SOURCE_DIR VERSION)
file(MAKE_DIRECTORY "${work}/out" "${work}/root")

function(run_tool)
    cmake_parse_arguments(R "" "NAME" "COMMAND" ${ARGN})
    execute_process(COMMAND ${R_COMMAND}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        set(failures ${failures} "${R_NAME} failed (${result}):\n${output}" PARENT_SCOPE)
    endif()
    set(tool_output "${output}" PARENT_SCOPE)
endfunction()

get_filename_component(cmake_dir "${CMAKE_COMMAND}" DIRECTORY)
find_program(CPACK cpack HINTS "${cmake_dir}" REQUIRED)
find_program(DPKG_DEB dpkg-deb REQUIRED)

run_tool(NAME cpack COMMAND "${CPACK}" -G DEB -B "${work}/out"
    --config "${BUILD_DIR}/CPackConfig.cmake")
file(GLOB debs "${work}/out/vantoviewer_${VERSION}_*.deb")
list(LENGTH debs deb_count)
if(NOT deb_count EQUAL 1)
    list(APPEND failures "expected one vantoviewer_${VERSION}_*.deb, found: ${debs}")
    finish()
    return()
endif()
list(GET debs 0 deb)
file(SIZE "${deb}" deb_size)
message(STATUS "package: ${deb} (${deb_size} bytes)")

# What the package must hold.
run_tool(NAME "dpkg-deb -c" COMMAND "${DPKG_DEB}" -c "${deb}")
set(listing "${tool_output}")
set(app_id com.vanto.VantoViewer)
foreach(path
        ./usr/bin/vantoviewer
        ./usr/lib/vantoviewer/plugins/libNodescope.so
        ./usr/lib/libvantosdk.so.${VERSION}
        ./usr/lib/cmake/VantoSDK/VantoSDKConfig.cmake
        ./usr/include/vanto/core/iplugin.h
        ./usr/share/vanto/viewer/Default_Filter.xml
        ./usr/share/applications/${app_id}.desktop
        ./usr/share/metainfo/${app_id}.metainfo.xml
        ./usr/share/icons/hicolor/scalable/apps/${app_id}.svg
        ./usr/share/icons/hicolor/16x16/apps/${app_id}.png
        ./usr/share/icons/hicolor/48x48/apps/${app_id}.png
        ./usr/share/icons/hicolor/256x256/apps/${app_id}.png
        ./usr/share/man/man1/vantoviewer.1.gz
        ./usr/share/doc/vantoviewer/copyright
        ./usr/lib/udev/rules.d/70-vanto-usb3vision.rules)
    string(FIND "${listing}" " ${path}\n" at)
    if(at EQUAL -1)
        list(APPEND failures "the package lacks ${path}")
    endif()
endforeach()
message(STATUS "package contents:\n${listing}")

# Library dependencies are computed, so Aravis and Qt must be there without being written down.
run_tool(NAME "dpkg-deb -f" COMMAND "${DPKG_DEB}" -f "${deb}" Depends)
foreach(dependency libaravis-0.8-0 libqt5widgets5 libc6)
    string(FIND "${tool_output}" "${dependency}" at)
    if(at EQUAL -1)
        list(APPEND failures "Depends does not name ${dependency}: ${tool_output}")
    endif()
endforeach()

# The unpacked tree runs as it is: the viewer finds its plug-in and library relative to itself.
run_tool(NAME "dpkg-deb -x" COMMAND "${DPKG_DEB}" -x "${deb}" "${work}/root")
run_viewer_screenshot("${work}/root/usr/bin/vantoviewer" "the unpacked viewer")
string(FIND "${run_output}" "loaded ${work}/root/usr/lib/vantoviewer/plugins/libNodescope.so"
    plugin_at)
if(plugin_at EQUAL -1)
    list(APPEND failures "the unpacked viewer did not load its own plug-in:\n${run_output}")
endif()

# The desktop files as the desktop tools read them.
find_program(DESKTOP_FILE_VALIDATE desktop-file-validate REQUIRED)
find_program(APPSTREAMCLI appstreamcli REQUIRED)
run_tool(NAME desktop-file-validate COMMAND "${DESKTOP_FILE_VALIDATE}"
    "${work}/root/usr/share/applications/${app_id}.desktop")
run_tool(NAME "appstreamcli validate" COMMAND "${APPSTREAMCLI}" validate --no-net
    "${work}/root/usr/share/metainfo/${app_id}.metainfo.xml")

# The udev rule: udevadm verify where udev has it (252 has not), and the rule syntax always.
set(rule "${work}/root/usr/lib/udev/rules.d/70-vanto-usb3vision.rules")
find_program(UDEVADM udevadm)
if(UDEVADM)
    execute_process(COMMAND "${UDEVADM}" verify --help RESULT_VARIABLE has_verify
        OUTPUT_QUIET ERROR_QUIET)
    if(has_verify EQUAL 0)
        run_tool(NAME "udevadm verify" COMMAND "${UDEVADM}" verify "${rule}")
    endif()
endif()
execute_process(
    COMMAND "${CMAKE_COMMAND}" -DRULE=${rule} -P "${SOURCE_DIR}/tests/package/checkudevrule.cmake"
    RESULT_VARIABLE rule_result OUTPUT_VARIABLE rule_output ERROR_VARIABLE rule_output)
if(NOT rule_result EQUAL 0)
    list(APPEND failures "the udev rule is malformed:\n${rule_output}")
endif()

finish()
