#include "RoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tervale::checkRoundTrip<std::vector<tervale::Profile>>(data, size);
    return 0;
}
