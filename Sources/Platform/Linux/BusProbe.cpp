#include "Platform/Linux/BusProbe.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>

namespace tervale {

namespace {

/// What everybody says to a bus first: a zero byte, and here the question which ways there are to
/// say who one is. It answers, and no connection comes of it.
constexpr std::string_view greeting{"\0AUTH\r\n", 7};

/// Bytes that an address cannot hold are written as %20.
std::optional<std::string> unescaped(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        std::size_t length = 1;
        char character = text.front();
        if (character == '%') {
            unsigned value = 0;
            const std::string_view digits = text.substr(1, 2);
            const auto read =
                std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
            if (digits.size() != 2 || read.ptr != digits.data() + digits.size())
                return std::nullopt;
            character = static_cast<char>(value);
            length = 3;
        }
        plain += character;
        text.remove_prefix(length);
    }
    return plain;
}

FileDescriptor connected(const std::string& name) {
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.empty() || name.size() >= sizeof address.sun_path)
        return FileDescriptor();
    std::memcpy(address.sun_path, name.data(), name.size());
    // A name without a file ends where its length says.
    const std::size_t end = name.front() == '\0' ? 0 : 1;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + end);
    // One that would have to wait for its turn finds nobody who answers either.
    if (::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), length) != 0 ||
        ::send(socket.number(), greeting.data(), greeting.size(), MSG_NOSIGNAL) !=
            static_cast<ssize_t>(greeting.size()))
        return FileDescriptor();
    return socket;
}

} // namespace

std::optional<std::string> busSocket(std::string_view address) {
    constexpr std::string_view transport = "unix:";
    address = address.substr(0, address.find(';'));
    if (!address.starts_with(transport))
        return std::nullopt;
    address.remove_prefix(transport.size());
    while (!address.empty()) {
        const std::string_view part = address.substr(0, address.find(','));
        address.remove_prefix(std::min(part.size() + 1, address.size()));
        for (const auto& [key, prefix] :
             {std::pair("path=", std::string()), std::pair("abstract=", std::string(1, '\0'))})
            if (part.starts_with(key))
                if (const auto name = unescaped(part.substr(std::strlen(key))))
                    return prefix + *name;
    }
    return std::nullopt;
}

BusProbe::BusProbe(const std::string& socketName, std::function<void(bool)> told)
    : handler(std::move(told)),
      socket(connected(socketName)) {
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &limit, [this] { tell(false); });
    limit.start(socket ? patience : std::chrono::milliseconds(0));
    if (!socket)
        return;
    arrival = std::make_unique<QSocketNotifier>(socket.number(), QSocketNotifier::Read);
    QObject::connect(arrival.get(), &QSocketNotifier::activated, arrival.get(),
                     [this] { receive(); });
}

void BusProbe::receive() {
    std::array<char, 64> answer{};
    tell(::recv(socket.number(), answer.data(), answer.size(), MSG_DONTWAIT) > 0);
}

void BusProbe::tell(bool answers) {
    limit.stop();
    // Not let go of while it is the one that calls.
    if (arrival)
        arrival->setEnabled(false);
    socket.close();
    if (const auto tellIt = std::exchange(handler, nullptr))
        tellIt(answers);
}

} // namespace tervale
