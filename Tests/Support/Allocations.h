#pragma once

#include <cstddef>

namespace tervale {

// A program that links this has an allocator that counts.

struct Allocations {
    std::size_t count = 0;
    std::size_t bytes = 0;
};

/// Every allocation since the program's start.
Allocations allocations();

} // namespace tervale
