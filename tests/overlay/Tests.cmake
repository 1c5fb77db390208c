# Tests of overlay, one line each.
