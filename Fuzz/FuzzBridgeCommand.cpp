#include "RoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tervale::checkRoundTrip<tervale::BridgeCommand>(data, size);
    return 0;
}
