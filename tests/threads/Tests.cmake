# Tests on several threads, a program of their own: builds with ThreadSanitizer have no others.
vostel_test_program(VostelThreadTests)
target_link_libraries(VostelThreadTests PRIVATE VostelObj::VostelObj)
vostel_test_source(VostelThreadTests threads/CanvasesAtOnceTest)
vostel_test_source(VostelThreadTests threads/WorkBesidePaintTest)
