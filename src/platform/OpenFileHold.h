// SPDX-License-Identifier: Apache-2.0
// Whoever holds a project open -- a window, a replay -- keeps a shared lock
// on its file, so that the next one to open it learns that it is open twice
// and the two would save over each other's work.
#pragma once

#include <string>
#include <sys/types.h>

namespace tw {

class OpenFileHold {
  public:
    OpenFileHold() = default;
    ~OpenFileHold();
    OpenFileHold(const OpenFileHold&) = delete;
    OpenFileHold& operator=(const OpenFileHold&) = delete;

    // Holds `path` (again, when a save by a rename made a new file of it).
    // True only when this is a new hold and someone else holds the file too.
    bool hold(const std::string& path);
    void release();

  private:
    int fd_ = -1;
    dev_t dev_ = 0;
    ino_t ino_ = 0;
};

} // namespace tw
