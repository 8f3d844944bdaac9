// Loaded before the system's library into a program under test: its calls on files below one folder
// are counted, and the one with a number of the test's choice fails. No header that declares these
// calls is included, so that they can be defined here.

#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <string_view>

namespace {

using Size = std::size_t;
using SignedSize = std::ptrdiff_t;

long number(const char* variable) {
    const char* text = std::getenv(variable);
    return text ? std::strtol(text, nullptr, 10) : 0;
}

std::string_view folder() {
    static const char* path = std::getenv("TERVALE_FAULT_FOLDER");
    return path ? path : "";
}

std::atomic<long> count = 0;

/// The descriptors of what is open below the folder.
std::array<std::atomic<bool>, 4096> watched{};

bool isWatched(int descriptor) {
    return descriptor >= 0 && static_cast<Size>(descriptor) < watched.size() &&
           watched[static_cast<Size>(descriptor)];
}

void watch(int descriptor, bool below) {
    if (descriptor >= 0 && static_cast<Size>(descriptor) < watched.size())
        watched[static_cast<Size>(descriptor)] = below;
}

bool isBelow(const char* path, int start = -1) {
    if (!path || folder().empty())
        return false;
    const std::string_view text(path);
    return text.starts_with('/') ? text.starts_with(folder()) : isWatched(start);
}

/// Whether this call is one that fails. Zero as the error has a write take half of the bytes.
bool strikes(bool concerned) {
    static const long chosen = number("TERVALE_FAULT_AT");
    static const bool lasting = number("TERVALE_FAULT_LASTS") != 0;
    if (!concerned)
        return false;
    const long call = ++count;
    return call == chosen || (lasting && chosen > 0 && call > chosen);
}

int error() {
    static const auto chosen = static_cast<int>(number("TERVALE_FAULT_ERROR"));
    return chosen;
}

bool fails(bool concerned) {
    if (!strikes(concerned) || error() == 0)
        return false;
    errno = error();
    return true;
}

template <class Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// Parameters and arguments come in parentheses of their own.
// NOLINTBEGIN(bugprone-macro-parentheses)
// The call with these parameters, of which `concerned` says whether it counts.
#define FAULTY(result, name, parameters, arguments, concerned)                                     \
    extern "C" result name parameters {                                                            \
        static const auto real = next<result(*) parameters>(#name);                                \
        return fails(concerned) ? result{-1} : real arguments;                                     \
    }

#define FAULTY_POINTER(pointee, name, parameters, arguments, concerned)                            \
    extern "C" pointee* name parameters {                                                          \
        static const auto real = next<pointee*(*)parameters>(#name);                               \
        return fails(concerned) ? nullptr : real arguments;                                        \
    }

#define FAULTY_OPEN(name, parameters, arguments, concerned)                                        \
    extern "C" int name parameters {                                                               \
        static const auto real = next<int(*) parameters>(#name);                                   \
        const bool below = (concerned);                                                            \
        if (fails(below))                                                                          \
            return -1;                                                                             \
        const int opened = real arguments;                                                         \
        watch(opened, below);                                                                      \
        return opened;                                                                             \
    }
// NOLINTEND(bugprone-macro-parentheses)

FAULTY_OPEN(open, (const char* path, int flags, unsigned mode), (path, flags, mode), isBelow(path))
FAULTY_OPEN(open64, (const char* path, int flags, unsigned mode), (path, flags, mode),
            isBelow(path))
FAULTY_OPEN(openat, (int at, const char* path, int flags, unsigned mode), (at, path, flags, mode),
            isBelow(path, at))
FAULTY_OPEN(openat64, (int at, const char* path, int flags, unsigned mode), (at, path, flags, mode),
            isBelow(path, at))
FAULTY_OPEN(mkostemp, (char* path, int flags), (path, flags), isBelow(path))
FAULTY_OPEN(mkostemp64, (char* path, int flags), (path, flags), isBelow(path))

FAULTY(SignedSize, read, (int file, void* data, Size size), (file, data, size), isWatched(file))
FAULTY(int, fsync, (int file), (file), isWatched(file))
FAULTY(int, fdatasync, (int file), (file), isWatched(file))
FAULTY(int, ftruncate, (int file, long size), (file, size), isWatched(file))
FAULTY(int, ftruncate64, (int file, long size), (file, size), isWatched(file))
FAULTY(int, fchmod, (int file, unsigned mode), (file, mode), isWatched(file))
FAULTY(int, mkdir, (const char* path, unsigned mode), (path, mode), isBelow(path))
FAULTY(int, rename, (const char* from, const char* to), (from, to), isBelow(to))
FAULTY(int, renameat2, (int a, const char* from, int b, const char* to, unsigned flags),
       (a, from, b, to, flags), isBelow(to, b))
FAULTY(int, linkat, (int a, const char* from, int b, const char* to, int flags),
       (a, from, b, to, flags), isBelow(to, b))
FAULTY(int, link, (const char* from, const char* to), (from, to), isBelow(to))
FAULTY(int, unlink, (const char* path), (path), isBelow(path))
FAULTY(int, stat, (const char* path, void* status), (path, status), isBelow(path))
FAULTY(int, lstat, (const char* path, void* status), (path, status), isBelow(path))
FAULTY(int, fstat, (int file, void* status), (file, status), isWatched(file))
FAULTY(int, stat64, (const char* path, void* status), (path, status), isBelow(path))
FAULTY(int, lstat64, (const char* path, void* status), (path, status), isBelow(path))
FAULTY(int, fstat64, (int file, void* status), (file, status), isWatched(file))
FAULTY(int, fstatat, (int at, const char* path, void* status, int flags), (at, path, status, flags),
       isBelow(path, at))
FAULTY(int, fstatat64, (int at, const char* path, void* status, int flags),
       (at, path, status, flags), isBelow(path, at))
FAULTY(int, access, (const char* path, int mode), (path, mode), isBelow(path))
FAULTY(int, faccessat, (int at, const char* path, int mode, int flags), (at, path, mode, flags),
       isBelow(path, at))
FAULTY(int, chmod, (const char* path, unsigned mode), (path, mode), isBelow(path))
FAULTY(int, unlinkat, (int at, const char* path, int flags), (at, path, flags), isBelow(path, at))
FAULTY(int, futimens, (int file, const void* times), (file, times), isWatched(file))
FAULTY(int, statvfs, (const char* path, void* status), (path, status), isBelow(path))
FAULTY(int, statvfs64, (const char* path, void* status), (path, status), isBelow(path))
FAULTY(long, lseek, (int file, long offset, int from), (file, offset, from), isWatched(file))
FAULTY(long, lseek64, (int file, long offset, int from), (file, offset, from), isWatched(file))
FAULTY(SignedSize, readlink, (const char* path, char* target, Size size), (path, target, size),
       isBelow(path))
FAULTY(SignedSize, writev, (int file, const void* parts, int numberOfParts),
       (file, parts, numberOfParts), isWatched(file))

// These tell of a failure by a null pointer.
FAULTY_POINTER(void, opendir, (const char* path), (path), isBelow(path))
FAULTY_POINTER(char, realpath, (const char* path, char* resolved), (path, resolved), isBelow(path))
FAULTY(int, statx, (int at, const char* path, int flags, unsigned mask, void* status),
       (at, path, flags, mask, status), isBelow(path, at) || isWatched(at))

extern "C" SignedSize write(int file, const void* data, Size size) {
    static const auto real = next<SignedSize (*)(int, const void*, Size)>("write");
    if (!strikes(isWatched(file)))
        return real(file, data, size);
    if (error() == 0 && size > 1)
        return real(file, data, size / 2);
    errno = error();
    return -1;
}

// What fails to be closed is closed all the same, as in the system.
extern "C" int close(int file) {
    static const auto real = next<int (*)(int)>("close");
    const bool concerned = isWatched(file);
    watch(file, false);
    const int result = real(file);
    return fails(concerned) ? -1 : result;
}

/// Leaves the number of calls for the test.
__attribute__((destructor)) static void report() {
    const char* path = std::getenv("TERVALE_FAULT_REPORT");
    if (!path)
        return;
    constexpr int writing = 1 | 0100 | 01000;
    const int file = next<int (*)(const char*, int, unsigned)>("open")(path, writing, 0600);
    std::array<char, 24> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), count.load()).ptr;
    next<SignedSize (*)(int, const void*, Size)>("write")(file, text.data(),
                                                          static_cast<Size>(end - text.data()));
    next<int (*)(int)>("close")(file);
}
