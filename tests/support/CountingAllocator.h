#pragma once

#include <cstddef>

/// The number of allocations so far, in a test program that links CountingAllocator.cpp.
std::size_t allocationCount();

/// The bytes that they asked for in all.
std::size_t allocatedBytes();
