#include "RoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tervale::checkRoundTrip<tervale::BridgeState>(data, size);
    return 0;
}
