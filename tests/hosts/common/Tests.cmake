if(TARGET vostel-hosts)
    target_link_libraries(VostelTests PRIVATE vostel-hosts)
    vostel_test(hosts/common/HostTest)
endif()
