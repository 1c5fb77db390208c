if(VOSTEL_BUILD_DEMO)
    target_link_libraries(VostelTests PRIVATE vostel-tomography)
    vostel_test(hosts/reconstruction/TomographyTest)
endif()
