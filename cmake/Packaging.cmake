# `make package`: one Debian package with the viewer, its plug-in, the SDK and the desktop files.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantoviewer)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Nodescope developers")
set(CPACK_PACKAGE_CONTACT "The Nodescope developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "GenICam feature browser for machine-vision cameras")
set(CPACK_PACKAGE_DESCRIPTION
    "Vanto Viewer opens GigE Vision and USB3 Vision cameras through Aravis, and simulated\n\
cameras that serve any GenICam description, and shows their features as a tree with\n\
in-place editors, search, visibility levels, use cases, feature tabs and polling.\n\
It includes the SDK headers and CMake package for writing plug-ins.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Debug information stays in the build tree; the package carries what runs.
set(CPACK_STRIP_FILES ON)
# Library dependencies come from dpkg-shlibdeps. The libraries the package brings itself are
# resolved inside it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_BINARY_DIR}/sdk ${CMAKE_BINARY_DIR}/plugins)
# What no ELF file names: the QML modules that the options menu loads at run time.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qml-module-qtquick2, qml-module-qtquick-window2, qml-module-qtquick-layouts, qml-module-qtquick-controls2, qml-module-qtqml-models2")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "aravis-tools-cli")
# The udev rule takes effect when the package is installed, not at the next boot.
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/postinst)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
