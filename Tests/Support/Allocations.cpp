#include "Support/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

tervale::Allocations counted;

void* allocate(std::size_t size) {
    ++counted.count;
    counted.bytes += size;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace tervale {

Allocations allocations() {
    return counted;
}

} // namespace tervale
