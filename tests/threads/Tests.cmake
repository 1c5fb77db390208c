# Tests on several threads, a program of their own: builds with ThreadSanitizer have no others.
vostel_test_program(VostelThreadTests)
target_link_libraries(VostelThreadTests PRIVATE VostelObj::VostelObj)
vostel_test_source(VostelThreadTests threads/CanvasesAtOnceTest)
vostel_test_source(VostelThreadTests threads/WorkBesidePaintTest)

# Loads the library itself, so is not linked with it.
if(BUILD_SHARED_LIBS)
    vostel_test_program(VostelLoadTests)
    vostel_test_source(VostelLoadTests threads/LoadedLibraryTest)
    add_dependencies(VostelLoadTests VostelObj)
    target_include_directories(VostelLoadTests PRIVATE ${PROJECT_SOURCE_DIR}/include)
    target_compile_definitions(VostelLoadTests PRIVATE
        VOSTEL_LIBRARY="$<IF:$<BOOL:${WIN32}>,$<TARGET_FILE_NAME:VostelObj>,$<TARGET_FILE:VostelObj>>")
    target_link_libraries(VostelLoadTests PRIVATE ${CMAKE_DL_LIBS})
    # What outlives the library on purpose would count, once for each load; and ThreadSanitizer does not let a library
    # go whose races it was told to leave out.
    set_property(TEST ${VOSTEL_TEST_PREFIX}threads/LoadedLibraryTest APPEND PROPERTY
        ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0;TSAN_OPTIONS=print_suppressions=0")
endif()
