# Of the checkout that this port lies in: vcpkg install vostelobj --overlay-ports=packaging/vcpkg
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS features FEATURES widget VOSTEL_BUILD_QT)
vcpkg_find_acquire_program(PKGCONFIG)
vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DVOSTEL_BUILD_TESTS=OFF
        -DVOSTEL_BUILD_BENCH=OFF
        -DVOSTEL_BUILD_DEMO=OFF
        -DVOSTEL_INSTALL=ON
        -DVOSTEL_WARNINGS_AS_ERRORS=OFF
        "-DPKG_CONFIG_EXECUTABLE=${PKGCONFIG}"
        ${features}
    MAYBE_UNUSED_VARIABLES PKG_CONFIG_EXECUTABLE    # on Windows
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME VostelObj CONFIG_PATH lib/cmake/VostelObj)
vcpkg_fixup_pkgconfig()
vcpkg_copy_pdbs()

file(REMOVE_RECURSE
    "${CURRENT_PACKAGES_DIR}/debug/include"
    "${CURRENT_PACKAGES_DIR}/debug/share"
    "${CURRENT_PACKAGES_DIR}/share/doc"
)
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
