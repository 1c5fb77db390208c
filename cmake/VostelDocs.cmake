# Target docs: the site, in <build>/docs/html, of the pages in docs/ and the comments in the public headers. It fails if a
# public name has no comment or a link leads nowhere. Without Sphinx it is Doxygen's reference of the headers
# alone, in <build>/docs/doxygen/html.

find_program(VOSTEL_DOXYGEN doxygen)
mark_as_advanced(VOSTEL_DOXYGEN)
if(NOT VOSTEL_DOXYGEN)
    return()
endif()

set(VOSTEL_DOCS_DIR ${PROJECT_BINARY_DIR}/docs)
file(MAKE_DIRECTORY ${VOSTEL_DOCS_DIR})
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${VOSTEL_DOCS_DIR}/Doxyfile @ONLY)
find_program(VOSTEL_SPHINX sphinx-build)
mark_as_advanced(VOSTEL_SPHINX)
if(VOSTEL_SPHINX)
    set(command ${PROJECT_SOURCE_DIR}/docs/site/build.py ${VOSTEL_DOCS_DIR}/Doxyfile ${VOSTEL_DOCS_DIR})
else()
    set(command ${VOSTEL_DOXYGEN} ${VOSTEL_DOCS_DIR}/Doxyfile)
endif()
add_custom_target(docs
    COMMAND ${command}
    COMMENT "Documents in ${VOSTEL_DOCS_DIR}"
    VERBATIM)
