# Tests of the open interface, one line each.
vostel_test(open/HistoryTest)
