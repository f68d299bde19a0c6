#include "fuzz/targets.h"

#include <cstddef>
#include <cstdint>

/// What libFuzzer calls; KELVORA_TARGET is one of the functions of targets.h.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelvora::fuzz::KELVORA_TARGET(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
