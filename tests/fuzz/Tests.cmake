# Targets of libFuzzer, which comes with Clang. One test gives each its seeds and a second; tests/fuzz/run goes on.
add_library(VostelFuzzing STATIC fuzz/Fuzzing.cpp fuzz/FuzzerMain.cpp)
target_include_directories(VostelFuzzing PUBLIC
    ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/hosts ${PROJECT_SOURCE_DIR}/include)
target_include_directories(VostelFuzzing SYSTEM PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/doctest-include)
set_target_properties(VostelFuzzing PROPERTIES UNITY_BUILD OFF)    # the linker leaves out its main function alone
vostel_test_rules(VostelFuzzing)

# vostel_fuzzer_of(library name source definition...)
function(vostel_fuzzer_of library name source)
    add_executable(Fuzz-${name} fuzz/${source}.cpp)
    target_compile_definitions(Fuzz-${name} PRIVATE ${ARGN})
    target_link_libraries(Fuzz-${name} PRIVATE VostelFuzzing ${library})
    vostel_test_rules(Fuzz-${name})
    target_link_options(Fuzz-${name} PRIVATE -fsanitize=fuzzer)
    add_dependencies(VostelFuzzers Fuzz-${name})
endfunction()

# A target that drives the exports; and one that chooses among the processor variants.
function(vostel_fuzzer name source)
    vostel_fuzzer_of(VostelObj::VostelObj ${name} ${source} ${ARGN})
endfunction()
function(vostel_inner_fuzzer name source)
    vostel_fuzzer_of(VostelCore ${name} ${source} VOSTEL_BUILDING)
endfunction()

function(vostel_regions_fuzzer name format file)
    vostel_fuzzer(${name} RegionsFuzzer VOSTEL_FUZZ_FORMAT="${format}" VOSTEL_FUZZ_FILE="${file}")
endfunction()

add_custom_target(VostelFuzzers ALL)
foreach(format IN ITEMS bmp gif jpg png pnm tif webp)
    vostel_fuzzer(${format} PictureFuzzer VOSTEL_FUZZ_ENDING="${format}")
endforeach()
vostel_fuzzer(bmp-planes BmpPlanesFuzzer)
vostel_fuzzer(raw RawFuzzer)
vostel_fuzzer(parameters ParametersFuzzer)
vostel_fuzzer(session SessionFuzzer)
vostel_regions_fuzzer(json json in.json)
vostel_regions_fuzzer(geojson geojson in.geojson)
vostel_regions_fuzzer(coco coco in.coco.json)
vostel_regions_fuzzer(csv csv in.csv)
vostel_regions_fuzzer(labels labels in.png)
vostel_regions_fuzzer(imagej-roi imagej in.roi)
vostel_regions_fuzzer(imagej-zip imagej in.zip)
vostel_fuzzer(gestures GestureFuzzer)
vostel_fuzzer(plane-routines PlaneRoutinesFuzzer)
vostel_inner_fuzzer(correlation CorrelationFuzzer)
vostel_inner_fuzzer(fills FillsFuzzer)
vostel_inner_fuzzer(fourier FourierFuzzer)
vostel_inner_fuzzer(resize ResizeFuzzer)
vostel_inner_fuzzer(threshold ThresholdFuzzer)

# Makes the files that the targets begin with.
add_executable(SeedWriter fuzz/SeedWriter.cpp)
target_link_libraries(SeedWriter PRIVATE VostelFuzzing VostelObj::VostelObj webp)
vostel_test_rules(SeedWriter)
add_dependencies(VostelFuzzers SeedWriter)

add_test(NAME ${VOSTEL_TEST_PREFIX}fuzz/run
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/fuzz/run --fresh --jobs 1 --built $<TARGET_FILE_DIR:SeedWriter> 25)
set_tests_properties(${VOSTEL_TEST_PREFIX}fuzz/run PROPERTIES TIMEOUT 600 COST 1000)
