#pragma once

#include <cstddef>

/// The number of allocations so far in a test program that CountingAllocator.cpp is part of.
std::size_t allocationCount();
