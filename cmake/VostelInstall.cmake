# Install tree: headers, both libraries, a CMake package and a pkg-config file.

install(TARGETS VostelObj Tessik EXPORT VostelObjTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT VostelObjTargets NAMESPACE VostelObj::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VostelObj)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VostelObjConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VostelObjConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VostelObj)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VostelObjConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VostelObjConfig.cmake ${PROJECT_BINARY_DIR}/VostelObjConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VostelObj)

# Relative, so that the install tree can be moved.
file(RELATIVE_PATH VOSTEL_PREFIX_FROM_PKGCONFIG /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/vostelobj.pc.in ${PROJECT_BINARY_DIR}/vostelobj.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vostelobj.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
