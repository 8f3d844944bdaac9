#pragma once

// As much of the queues as the macOS adapters use, answered by `FakeKernel`.

using dispatch_queue_t = struct FakeQueue*;

extern "C" {
dispatch_queue_t dispatch_get_main_queue();
}
