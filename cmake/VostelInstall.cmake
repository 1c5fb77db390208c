# Install tree. Programs that were built with the library run on the component VostelObj_Runtime; building them
# also takes VostelObj_Development: headers, a CMake package, a pkg-config file and documents. VostelObj_Viewer is the
# viewer.
include(CMakePackageConfigHelpers)

set(packages ${CMAKE_INSTALL_LIBDIR}/cmake/VostelObj)
set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/VostelObj)
set(development COMPONENT VostelObj_Development)

# A set of exported targets for each component of find_package; headers go to a folder below the include folder.
function(vostel_install target header_folder)
    set(folder ${CMAKE_INSTALL_INCLUDEDIR}/${header_folder})
    install(TARGETS ${target} EXPORT ${target}Targets
        RUNTIME COMPONENT VostelObj_Runtime
        LIBRARY COMPONENT VostelObj_Runtime NAMELINK_COMPONENT VostelObj_Development
        ARCHIVE ${development}
        FILE_SET HEADERS DESTINATION ${folder} ${development}
        INCLUDES DESTINATION ${folder})    # CMake before 3.23 reads no file sets
    install(EXPORT ${target}Targets NAMESPACE VostelObj:: DESTINATION ${packages} ${development})
endfunction()

vostel_install(Tessik "")
vostel_install(VostelObj "")
if(TARGET VostelWidget)
    vostel_install(VostelWidget VostelWidget)
endif()

# A static library leaves it to hosts to link what src/platform is built with.
set(VOSTEL_NEEDED_PACKAGES "")
set(VOSTEL_NEEDED_MODULES "")
set(VOSTEL_NEEDED_LIBRARIES "")
set(VOSTEL_DEFINITIONS "")
if(NOT BUILD_SHARED_LIBS)
    set(VOSTEL_DEFINITIONS -DVOSTEL_STATIC)
    if(WIN32)
        set(needs gdi32 gdiplus comdlg32 ole32 shell32 shlwapi user32 windowscodecs)
        list(JOIN needs " -l" VOSTEL_NEEDED_LIBRARIES)
        string(PREPEND VOSTEL_NEEDED_LIBRARIES "-lz -l")
        list(APPEND needs ZLIB::ZLIB)
        set(VOSTEL_NEEDED_PACKAGES ZLIB)
    else()
        set(needs PkgConfig::PANGOCAIRO PkgConfig::WEBP PNG::PNG JPEG::JPEG TIFF::TIFF GIF::GIF ZLIB::ZLIB)
        set(VOSTEL_NEEDED_PACKAGES PkgConfig PNG JPEG TIFF GIF ZLIB)
        set(VOSTEL_NEEDED_MODULES "pangocairo libpng libjpeg libtiff-4 libwebp zlib")
        set(VOSTEL_NEEDED_LIBRARIES -lgif)    # has no module
    endif()
    foreach(need IN LISTS needs)
        target_link_libraries(VostelObj INTERFACE $<INSTALL_INTERFACE:$<LINK_ONLY:${need}>>)
    endforeach()
endif()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VostelObjConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VostelObjConfig.cmake INSTALL_DESTINATION ${packages})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VostelObjConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VostelObjConfig.cmake ${PROJECT_BINARY_DIR}/VostelObjConfigVersion.cmake
    DESTINATION ${packages} ${development})

# Relative, so that the install tree can be moved.
file(RELATIVE_PATH VOSTEL_PREFIX_FROM_PKGCONFIG /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/vostelobj.pc.in ${PROJECT_BINARY_DIR}/vostelobj.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vostelobj.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig ${development})

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${documents} COMPONENT VostelObj_Runtime)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/SECURITY.md
    DESTINATION ${documents} ${development})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${documents} ${development})

foreach(viewer IN ITEMS vostel-viewer vostel-viewer-win32)
    if(TARGET ${viewer})
        install(TARGETS ${viewer} RUNTIME COMPONENT VostelObj_Viewer)
        file(RELATIVE_PATH libraries /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
        set_target_properties(${viewer} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
    endif()
endforeach()

# cpack packs all of it.
if(PROJECT_IS_TOP_LEVEL)
    set(CPACK_GENERATOR TGZ)
    if(WIN32)
        set(CPACK_GENERATOR ZIP)
    endif()
    set(CPACK_PACKAGE_VENDOR VostelObj)
    set(CPACK_STRIP_FILES ON)
    set(CPACK_MONOLITHIC_INSTALL ON)
    set(CPACK_VERBATIM_VARIABLES ON)
    include(CPack)
endif()
