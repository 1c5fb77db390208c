# What every target of this project is compiled with. A folder may take warnings back by VOSTEL_FEWER_WARNINGS.

function(vostel_compile_rules target)
    target_compile_features(${target} PRIVATE cxx_std_20 PUBLIC cxx_std_17)    # hosts may stay with C++17
    target_compile_options(${target} PRIVATE    # every build computes the same bits
        "$<IF:$<CXX_COMPILER_ID:MSVC>,/utf-8;/fp:precise,-ffp-contract=off>")
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE -Wall -Wextra)
    endif()
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT MSVC)
        target_compile_options(${target} PRIVATE -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wcast-qual
            -Wdeprecated -Wextra-semi -Wformat=2 -Wimplicit-fallthrough -Wnon-virtual-dtor
            -Woverloaded-virtual -Wunused-template -Wzero-as-null-pointer-constant ${VOSTEL_FEWER_WARNINGS})
        # Containers of the interface have virtual members and no virtual destructor; each is deleted as what it is.
        target_compile_options(${target} PRIVATE -Wno-delete-non-abstract-non-virtual-dtor)
    endif()
    if(VOSTEL_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE "$<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>")
    endif()
    if(VOSTEL_SANITIZE)
        # The reports need lines, not variables; leaving those out halves the build.
        target_compile_options(${target} PRIVATE -O1 -g1 -fno-omit-frame-pointer
            -fsanitize=address,undefined -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
        if(VOSTEL_FUZZ)
            target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
        endif()
    elseif(VOSTEL_SANITIZE_THREADS)
        target_compile_options(${target} PRIVATE -O1 -g1 -fsanitize=thread)
        target_link_options(${target} PRIVATE -fsanitize=thread)
    endif()
    if(MINGW)
        target_link_options(${target} PRIVATE -static)    # the runtime goes into each program and library
    endif()
endfunction()

# Reads what most sources of a target include once for all of them: vostel_common_headers(target <header>...). Sources
# name what they use all the same, as builds with CMAKE_DISABLE_PRECOMPILE_HEADERS want it.
function(vostel_common_headers target)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    # ccache looks into a precompiled header only if the preprocessor has kept its name.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    # GCC 12 raises false alarms about what it inlines of the system's own headers, which it no longer takes for such.
    target_compile_options(${target} PRIVATE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>)
endfunction()

# Keeps sources of a target out of unity builds: their names would meet those of others there.
function(vostel_apart target)
    set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# Shows only the names that are marked for export.
function(vostel_hide_names target)
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden)
    if(NOT WIN32)
        # There, hosts that do not inline take the inline members of exported classes from the library.
        set_target_properties(${target} PROPERTIES VISIBILITY_INLINES_HIDDEN ON)
    endif()
endfunction()

# A library for hosts, shared or static as BUILD_SHARED_LIBS says.
function(vostel_library target)
    vostel_hide_names(${target})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX POSITION_INDEPENDENT_CODE ON DEFINE_SYMBOL "")
    if(NOT BUILD_SHARED_LIBS)
        target_compile_definitions(${target} INTERFACE VOSTEL_STATIC)
        return()
    endif()
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    if(WIN32)
        set_target_properties(${target} PROPERTIES PREFIX "")
    elseif(NOT APPLE)
        # The two libraries are installed side by side and find each other wherever that is.
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
        # Exports get a version node, and weak copies of standard library templates stay inside.
        string(TOUPPER ${target}_${PROJECT_VERSION_MAJOR}.0 node)
        set(later_nodes "")
        if(target STREQUAL VostelObj)
            set(later_nodes "VOSTELOBJ_1.1 { global: vostel_*; } ${node};")
        endif()
        set(names ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
        configure_file(${PROJECT_SOURCE_DIR}/cmake/LibraryNames.map.in ${names} @ONLY)
        set_target_properties(${target} PROPERTIES LINK_DEPENDS ${names})
        # A host may have C functions of the same names as the drawing calls; the library keeps to its own.
        target_link_options(${target} PRIVATE
            "LINKER:--exclude-libs,ALL" "LINKER:--version-script=${names}" "LINKER:-Bsymbolic-functions")
    endif()
endfunction()

# Builds for export; off Windows the objects of static and shared libraries are the same.
function(vostel_building target definition)
    if(WIN32 AND NOT BUILD_SHARED_LIBS)
        set(definition VOSTEL_STATIC)
    endif()
    target_compile_definitions(${target} PRIVATE ${definition})
endfunction()

set(VOSTEL_X86_64 FALSE)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|amd64" AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(VOSTEL_X86_64 TRUE)
endif()

# Adds the processor variants of one file to a target: vostel_variants(target stem feature...). Stem and feature
# make the file's name; it is compiled for that feature. Other processors leave the variants out.
function(vostel_variants target stem)
    if(NOT VOSTEL_X86_64)
        return()
    endif()
    target_compile_definitions(${target} PRIVATE VOSTEL_X86_64)    # for those that choose among the variants
    foreach(feature IN LISTS ARGN)
        if(feature STREQUAL "SSE2")
            set(file ${stem}Sse2.cpp)
            set(flags "")
        elseif(feature STREQUAL "AVX2")
            set(file ${stem}Avx2.cpp)
            set(flags "$<IF:$<CXX_COMPILER_ID:MSVC>,/arch:AVX2,-mavx2>")
        elseif(feature STREQUAL "AVX512")
            set(file ${stem}Avx512.cpp)
            set(flags "$<IF:$<CXX_COMPILER_ID:MSVC>,/arch:AVX512,-mavx512f;-mavx512bw;-mavx512vl;-mavx512dq>")
            # GCC 12 takes the unset operand inside its own intrinsics for a variable of ours.
            list(APPEND flags "$<$<CXX_COMPILER_ID:GNU>:-Wno-uninitialized;-Wno-maybe-uninitialized>")
        else()
            message(FATAL_ERROR "no processor feature named ${feature}")
        endif()
        if(MINGW)
            # The compiler aligns the stack to 16 bytes only and yet spills wider registers with aligned moves.
            list(APPEND flags "-Wa,-muse-unaligned-vector-move")
        endif()
        set_source_files_properties(${file} TARGET_DIRECTORY ${target} PROPERTIES COMPILE_OPTIONS "${flags}"
            SKIP_PRECOMPILE_HEADERS ON)    # those are made for the processor at large
        target_sources(${target} PRIVATE ${file})
    endforeach()
endfunction()
