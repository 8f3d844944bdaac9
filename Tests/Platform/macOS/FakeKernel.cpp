#include "Platform/macOS/FakeKernel.h"

#include <gtest/gtest.h>

#include <IOKit/IOKitLib.h>
#include <algorithm>
#include <cstring>
#include <mach/mach.h>

using tervale::FakeKernel;
using tervale::IORegistry;

/// Allocated, so that the sanitizer sees who uses it too long or forgets it.
struct FakeDictionary {
    std::string className;
};

namespace tervale {

namespace {
FakeKernel* running = nullptr;
}

FakeKernel& FakeKernel::current() {
    return *running;
}

FakeKernel::FakeKernel() {
    running = this;
}

FakeKernel::~FakeKernel() {
    running = nullptr;
    EXPECT_TRUE(dictionaries.empty()) << "a dictionary was not handed over";
    EXPECT_TRUE(services.empty()) << "a service was not released";
    EXPECT_TRUE(connections.empty()) << "a connection was not closed";
    EXPECT_EQ(hostReferences, 0) << "the host's port was not given back";
}

} // namespace tervale

CFMutableDictionaryRef IOServiceMatching(const char* name) {
    FakeKernel& kernel = FakeKernel::current();
    kernel.sequence.push_back(std::string("match ") + name);
    if (!kernel.makesDictionaries)
        return nullptr;
    auto* dictionary = new FakeDictionary{name};
    kernel.dictionaries.insert(dictionary);
    return dictionary;
}

io_service_t IOServiceGetMatchingService(mach_port_t mainPort, CFDictionaryRef matching) {
    FakeKernel& kernel = FakeKernel::current();
    kernel.sequence.push_back("find on port " + std::to_string(mainPort));
    EXPECT_EQ(kernel.dictionaries.erase(matching), 1U) << "no dictionary of the program's";
    const bool found = matching->className == kernel.serviceClass;
    delete matching;
    if (!found)
        return IO_OBJECT_NULL;
    const io_service_t service = kernel.newHandle();
    kernel.services.emplace(service, 1);
    return service;
}

kern_return_t IOServiceOpen(io_service_t service, task_port_t owningTask, std::uint32_t type,
                            io_connect_t* connect) {
    FakeKernel& kernel = FakeKernel::current();
    kernel.sequence.push_back("open type " + std::to_string(type));
    EXPECT_EQ(kernel.services.count(service), 1U) << "no service of the program's";
    EXPECT_EQ(owningTask, FakeKernel::task);
    // A refusal leaves something of no meaning behind.
    *connect = 0xDEAD;
    if (kernel.openStatus != KERN_SUCCESS)
        return kernel.openStatus;
    *connect = kernel.newHandle();
    kernel.connections.insert(*connect);
    return KERN_SUCCESS;
}

kern_return_t IOObjectRelease(io_object_t object) {
    FakeKernel& kernel = FakeKernel::current();
    kernel.sequence.emplace_back("release");
    EXPECT_EQ(kernel.services.erase(object), 1U) << "released what is not held";
    return KERN_SUCCESS;
}

kern_return_t IOConnectCallStructMethod(io_connect_t connection, std::uint32_t selector,
                                        const void* input, std::size_t inputSize, void* output,
                                        std::size_t* outputSize) {
    FakeKernel& kernel = FakeKernel::current();
    kernel.sequence.push_back("call " + std::to_string(selector) + ", " +
                              std::to_string(inputSize) + " bytes in, " +
                              std::to_string(*outputSize) + " out");
    EXPECT_EQ(kernel.connections.count(connection), 1U) << "called on what is not open";
    IORegistry::Structure request{};
    IORegistry::Structure response{};
    std::memcpy(request.data(), input, std::min(inputSize, request.size()));
    const kern_return_t status = kernel.exchange(request, response);
    if (status != KERN_SUCCESS)
        return status;
    *outputSize = std::min(*outputSize, kernel.answerSize);
    std::memcpy(output, response.data(), *outputSize);
    return KERN_SUCCESS;
}

kern_return_t IOServiceClose(io_connect_t connect) {
    FakeKernel& kernel = FakeKernel::current();
    kernel.sequence.emplace_back("close");
    EXPECT_EQ(kernel.connections.erase(connect), 1U) << "closed what is not open";
    return KERN_SUCCESS;
}

mach_port_t mach_task_self() {
    return FakeKernel::task;
}

mach_port_t mach_host_self() {
    ++FakeKernel::current().hostReferences;
    return FakeKernel::host;
}

kern_return_t mach_port_deallocate(task_t task, mach_port_t port) {
    EXPECT_EQ(task, FakeKernel::task);
    EXPECT_EQ(port, FakeKernel::host);
    --FakeKernel::current().hostReferences;
    return KERN_SUCCESS;
}

kern_return_t host_statistics(host_t host, host_flavor_t flavor, host_info_t information,
                              mach_msg_type_number_t* count) {
    const FakeKernel& kernel = FakeKernel::current();
    EXPECT_EQ(host, FakeKernel::host);
    EXPECT_EQ(flavor, HOST_CPU_LOAD_INFO);
    EXPECT_EQ(*count, kernel.ticks.size());
    if (kernel.statisticsStatus != KERN_SUCCESS)
        return kernel.statisticsStatus;
    std::memcpy(information, kernel.ticks.data(), *count * sizeof *information);
    return KERN_SUCCESS;
}
