#pragma once

#include <cstddef>

/// The number of allocations so far, in a test program that links CountingAllocator.cpp.
std::size_t allocationCount();
