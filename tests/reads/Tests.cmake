# Reads of files that change meanwhile, of all exported calls that read files.
if(NOT WIN32)    # the system does not let a process be stopped at its calls there
    vostel_test(reads/ChangingFilesTest)
    target_sources(VostelTests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/reads/ReadCalls.cpp)
    set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/reads/ChangingFilesTest.cpp APPEND PROPERTY COMPILE_DEFINITIONS
        "VOSTEL_EXPORTED_NAMES=\"${CMAKE_CURRENT_SOURCE_DIR}/package/exports/libVostelObj.so.txt\""
        VOSTEL_READ_STEP=$<IF:$<BOOL:${VOSTEL_SANITIZE}>,9,2>)
    vostel_apart(VostelTests reads/ReadCalls.cpp reads/ChangingFilesTest.cpp)
endif()
