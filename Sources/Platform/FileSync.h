#pragma once

namespace tervale {

/// Waits until the disk has what was written to the open file. False if it failed; true where the
/// file system has no such call.
[[nodiscard]] bool syncToDisk(int fileDescriptor);

} // namespace tervale
