#pragma once

#include "SMC/IORegistry.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/un.h>

namespace tervale {

/// The socket through which a simulated Mac serves its controller to other processes of the same
/// user: a Unix socket of type SOCK_SEQPACKET, so that every packet is one whole frame. A client
/// sends a request and waits for the reply before it sends the next. Hanging up closes what the
/// client has opened, and a packet that is no request is answered by hanging up.
namespace controllerSocket {

enum class Operation : std::uint8_t {
    /// Finds the service of the class that `structure` names, in UTF-8 and filled up with zeros.
    /// First on every connection, and once.
    find = 1,
    /// Opens the service with the type in `number`. Once.
    open = 2,
    /// Exchanges the structure under the selector in `number`.
    exchange = 3,
};

/// | offset | bytes | field     | meaning                       |
/// |--------|-------|-----------|-------------------------------|
/// | 0      | 1     | operation | an `Operation`                |
/// | 1      | 3     | unused    | zero                          |
/// | 4      | 4     | number    | little-endian; by operation   |
/// | 8      | 80    | structure | by operation, otherwise zero  |
struct Request {
    Operation operation = Operation::find;
    std::array<std::byte, 3> unused{};
    std::uint32_t number = 0;
    IORegistry::Structure structure{};
};
static_assert(sizeof(Request) == 88);
static_assert(offsetof(Request, operation) == 0);
static_assert(offsetof(Request, unused) == 1);
static_assert(offsetof(Request, number) == 4);
static_assert(offsetof(Request, structure) == 8);

/// | offset | bytes | field     | meaning                                             |
/// |--------|-------|-----------|-----------------------------------------------------|
/// | 0      | 4     | status    | little-endian; 0 is success, else the kernel's code |
/// | 4      | 80    | structure | the response to an exchange, otherwise zero         |
struct Reply {
    IORegistry::Status status = 0;
    IORegistry::Structure structure{};
};
static_assert(sizeof(Reply) == 84);
static_assert(offsetof(Reply, status) == 0);
static_assert(offsetof(Reply, structure) == 4);

/// Where the socket lies unless the user says otherwise: in the runtime folder.
std::filesystem::path defaultPath();

/// The address of a path; nothing if it is too long for one.
std::optional<sockaddr_un> address(const std::filesystem::path& path);

} // namespace controllerSocket

} // namespace tervale
