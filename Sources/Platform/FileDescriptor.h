#pragma once

#include <unistd.h>
#include <utility>

namespace tervale {

/// An open file or socket, closed with the object.
class FileDescriptor {
  public:
    explicit FileDescriptor(int descriptor = -1) : descriptor(descriptor) {}
    ~FileDescriptor() { close(); }
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor(std::exchange(other.descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            close();
            descriptor = std::exchange(other.descriptor, -1);
        }
        return *this;
    }

    explicit operator bool() const { return descriptor >= 0; }
    int number() const { return descriptor; }
    /// False if what was written may be lost.
    bool close() {
        const int closing = std::exchange(descriptor, -1);
        return closing < 0 || ::close(closing) == 0;
    }

  private:
    int descriptor;
};

} // namespace tervale
