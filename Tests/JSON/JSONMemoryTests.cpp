#include "JSON/JSON.h"
#include "JSON/Sample.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>
#include <variant>

// Every allocation of this program is counted, so it holds no other tests.

namespace {

std::size_t allocated = 0;

void* allocate(std::size_t size) {
    allocated += size;
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

using namespace tervale;

namespace {

/// A sample with an unknown member of some megabytes, which repeats `element`.
std::string longText(const std::string& element) {
    std::string text = R"({"unknown":[0)";
    while (text.size() < 3'000'000)
        text += element;
    return text + R"(],"number":1})";
}

/// What is allocated, in bytes, to decode the text; the result counts as well.
template <class Value>
std::size_t bytesToDecode(const std::string& text) {
    const std::size_t before = allocated;
    const Decoded<Value> result = decode<Value>(text);
    EXPECT_TRUE(std::holds_alternative<Value>(result)) << std::get<DecodingError>(result).text();
    return allocated - before;
}

} // namespace

TEST(JSONMemory, BuildsNothingThatNobodyReads) {
    for (const char* element : {",0", R"(,{"a":[{"b":"\u0041"}]})"})
        EXPECT_LT(bytesToDecode<Sample>(longText(element)), 10'000U) << element;
}

TEST(JSONMemory, TakesNoMoreThanAFewTimesWhatIsRead) {
    const std::string text = "[" + std::string(1'000'000, ' ') + "1,2,3]";
    EXPECT_LT(bytesToDecode<std::vector<double>>(text), 10'000U);
}

TEST(CountOfAllocations, SeesAString) {
    const std::size_t before = allocated;
    EXPECT_EQ(std::string(1000, 'x').size(), 1000U);
    EXPECT_GT(allocated - before, 1000U);
}
