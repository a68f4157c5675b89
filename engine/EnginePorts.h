// SPDX-License-Identifier: Apache-2.0
// What the sample engine asks of the world when it reads its input the way
// Tarnwick does: nobody answers, nothing is started or written, and the
// input is read from the disk.
#pragma once

#include "core/QuietPorts.h"

#include <fstream>
#include <iterator>
#include <string>

namespace tw::sample {

class EnginePorts : public QuietPorts {
  public:
    ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) override {
        std::ifstream in(path, std::ios::binary);
        if (!in) return {{}, err::kFileNotFound, "File not found: " + path};
        ReadResult r;
        r.bytes.assign(std::istreambuf_iterator<char>(in), {});
        if (r.bytes.size() > maxBytes)
            return {{}, err::kFileAccess, "Path/File access error: " + path + " is too large"};
        return r;
    }
};

} // namespace tw::sample
