// SPDX-License-Identifier: Apache-2.0
#include "platform/OpenFileHold.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

OpenFileHold::~OpenFileHold() { release(); }

void OpenFileHold::release() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

bool OpenFileHold::hold(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    if (fd_ >= 0 && st.st_dev == dev_ && st.st_ino == ino_) return false;
    release();
    fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd_ < 0) return false;
    dev_ = st.st_dev;
    ino_ = st.st_ino;
    // Every holder has a shared lock; one that cannot have it alone is not the only one.
    if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) {
        ::flock(fd_, LOCK_SH);
        return false;
    }
    ::flock(fd_, LOCK_SH | LOCK_NB);
    return true;
}

} // namespace tw
