#include "Platform/FileSync.h"

#include <cerrno>
#include <unistd.h>

namespace tervale {

bool syncToDisk(int fileDescriptor) {
    int result = 0;
    do
        result = ::fsync(fileDescriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

} // namespace tervale
