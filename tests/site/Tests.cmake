# The site: it is made of the pages without a warning, its links lead somewhere, and what its tutorials and guides show does
# what they say, with the library installed as they say.
if(CMAKE_CROSSCOMPILING OR VOSTEL_SANITIZE OR NOT BUILD_SHARED_LIBS)
    return()
endif()
set(site ${CMAKE_CURRENT_SOURCE_DIR}/site)
set(work ${CMAKE_CURRENT_BINARY_DIR}/site)
set(docs ${PROJECT_SOURCE_DIR}/docs)
find_program(VOSTEL_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)

function(vostel_site_test name packages)
    set(test ${VOSTEL_TEST_PREFIX}site/${name})
    set(missing TRUE)
    if(VOSTEL_PYTHON)
        execute_process(COMMAND ${VOSTEL_PYTHON} -c "import ${packages}" RESULT_VARIABLE missing ERROR_QUIET)
    endif()
    if(missing)
        add_test(NAME ${test} COMMAND ${CMAKE_COMMAND} -E echo "${packages}: not installed")
        set_tests_properties(${test} PROPERTIES SKIP_REGULAR_EXPRESSION "not installed")
    else()
        add_test(NAME ${test} COMMAND ${VOSTEL_PYTHON} ${ARGN})
    endif()
    set_tests_properties(${test} PROPERTIES TIMEOUT 300)
endfunction()

if(VOSTEL_DOXYGEN)
    vostel_site_test(build "breathe, furo, myst_parser, sphinx"
        ${docs}/site/build.py ${VOSTEL_DOCS_DIR}/Doxyfile ${VOSTEL_DOCS_DIR})
    vostel_site_test(links "breathe, furo, myst_parser, sphinx" ${site}/links.py ${VOSTEL_DOCS_DIR}/html)
    set_tests_properties(${VOSTEL_TEST_PREFIX}site/build PROPERTIES FIXTURES_SETUP ${VOSTEL_TEST_PREFIX}site COST 300)
    set_tests_properties(${VOSTEL_TEST_PREFIX}site/links PROPERTIES FIXTURES_REQUIRED ${VOSTEL_TEST_PREFIX}site)
endif()

set(prefix ${work}/prefix)
add_test(NAME ${VOSTEL_TEST_PREFIX}site/install
    COMMAND ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --prefix ${prefix})
set_tests_properties(${VOSTEL_TEST_PREFIX}site/install PROPERTIES
    FIXTURES_SETUP ${VOSTEL_TEST_PREFIX}site-prefix TIMEOUT 60)
set(environment "CMAKE_PREFIX_PATH=${prefix}" "PKG_CONFIG_PATH=${prefix}/${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    "LD_LIBRARY_PATH=${prefix}/${CMAKE_INSTALL_LIBDIR}" CMAKE_GENERATOR=Ninja QT_QPA_PLATFORM=offscreen
    "PYTHONPATH=${PROJECT_SOURCE_DIR}/bindings/python" PYTHONDONTWRITEBYTECODE=1
    "VOSTEL_LIBRARY=$<TARGET_FILE:VostelObj>")
function(vostel_follow name page)
    vostel_site_test(${name} numpy ${site}/follow.py ${docs}/${page} ${work}/${name} ${ARGN})
    set_tests_properties(${VOSTEL_TEST_PREFIX}site/${name} PROPERTIES
        FIXTURES_REQUIRED ${VOSTEL_TEST_PREFIX}site-prefix ENVIRONMENT "${environment}")
endfunction()
foreach(language IN ITEMS c cpp python)
    vostel_follow(tutorial-${language} tutorials/${language}.md --picture ${docs}/images/tutorial.png)
endforeach()
if(TARGET VostelWidget)
    vostel_follow(tutorial-qt tutorials/qt.md --window)
endif()
foreach(guide IN ITEMS contrast coordinates drawing history listeners measuring threads)
    vostel_follow(guide-${guide} guides/${guide}.md)
endforeach()

# The Chinese pages go with the English ones.
vostel_site_test(translations unittest ${site}/translations_test.py)
