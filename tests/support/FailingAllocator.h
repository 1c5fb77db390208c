#pragma once

// The allocator of a program of tests, which fails on request and counts what is alive.

// Blocks that were taken and not given back.
long LiveBlockCount();

// The first failed allocation after this is number n, and no other fails; 0 ends it.
void FailAt(long n);

// Whether an allocation has failed since the last FailAt.
bool HasAllocationFailed();
