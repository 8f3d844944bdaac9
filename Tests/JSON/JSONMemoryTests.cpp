#include "JSON/JSON.h"
#include "JSON/Sample.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <variant>

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
    const std::size_t before = allocations().bytes;
    const Decoded<Value> result = decode<Value>(text);
    EXPECT_TRUE(std::holds_alternative<Value>(result)) << std::get<DecodingError>(result).text();
    return allocations().bytes - before;
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
    const std::size_t before = allocations().bytes;
    EXPECT_EQ(std::string(1000, 'x').size(), 1000U);
    EXPECT_GT(allocations().bytes - before, 1000U);
}
