# Tests of instruments, one line each.
