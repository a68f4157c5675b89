// Any bytes given to the reader are either read or refused with an error.
#include "FakePorts.h"

#include "core/inputfile/InputFile.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tw::test::Loaded app;
    tw::resetForm(*app);
    try {
        tw::parseInputFile(*app, std::string(reinterpret_cast<const char*>(data), size));
    } catch (const tw::RuntimeError&) {
    }
    return 0;
}
