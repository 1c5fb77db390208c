# Target docs: the reference of the public headers, as pages in <build>/docs/html. It fails if a public name has no
# comment.

find_program(VOSTEL_DOXYGEN doxygen)
mark_as_advanced(VOSTEL_DOXYGEN)
if(NOT VOSTEL_DOXYGEN)
    return()
endif()

set(VOSTEL_DOCS_DIR ${PROJECT_BINARY_DIR}/docs)
file(MAKE_DIRECTORY ${VOSTEL_DOCS_DIR})
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${VOSTEL_DOCS_DIR}/Doxyfile @ONLY)
add_custom_target(docs
    COMMAND ${VOSTEL_DOXYGEN} ${VOSTEL_DOCS_DIR}/Doxyfile
    COMMENT "Reference of the public headers in ${VOSTEL_DOCS_DIR}/html"
    VERBATIM)
