# Saves where they fail, of all exported calls that write files.
target_sources(VostelTests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/saves/SaveCalls.cpp)
if(WIN32)
    vostel_test(saves/HeldSavesTest)
else()
    vostel_test(saves/KilledSavesTest)
    vostel_test(saves/SaveFaultsTest)
    target_sources(VostelTests PRIVATE
        ${CMAKE_CURRENT_SOURCE_DIR}/saves/KilledProcess.cpp ${CMAKE_CURRENT_SOURCE_DIR}/saves/SmallDisk.cpp
        ${CMAKE_CURRENT_SOURCE_DIR}/support/WatchedProcess.cpp)
    set_property(SOURCE ${CMAKE_CURRENT_SOURCE_DIR}/saves/SaveFaultsTest.cpp APPEND PROPERTY COMPILE_DEFINITIONS
        "VOSTEL_EXPORTED_NAMES=\"${CMAKE_CURRENT_SOURCE_DIR}/package/exports/libVostelObj.so.txt\"")
endif()
