// SPDX-License-Identifier: Apache-2.0
#include "cli/ScriptReader.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

ScriptLine nextScriptLine(std::istream& in, std::string& line) {
    line.clear();
    std::streambuf* buf = in.rdbuf();
    bool any = false;
    for (int c; (c = buf->sbumpc()) != std::char_traits<char>::eof();) {
        any = true;
        if (c == '\n') return ScriptLine::Read;
        if (line.size() == kMaxScriptLine) return ScriptLine::TooLong;
        line.push_back(static_cast<char>(c));
    }
    return any ? ScriptLine::Read : ScriptLine::End;
}

// Reads the descriptor as data arrives: a line is carried out as soon as it is whole.
class ScriptSource::Buffer : public std::streambuf {
  public:
    explicit Buffer(int fd) : fd_(fd) {}
    int error() const { return error_; }

  protected:
    int_type underflow() override {
        if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
        ssize_t n;
        do
            n = ::read(fd_, data_, sizeof data_);
        while (n < 0 && errno == EINTR);
        if (n <= 0) {
            if (n < 0) error_ = errno;
            return traits_type::eof();
        }
        setg(data_, data_, data_ + n);
        return traits_type::to_int_type(*gptr());
    }

  private:
    int fd_;
    int error_ = 0;
    char data_[65536];
};

ScriptSource::ScriptSource(const std::string& path) {
    if (path == "-") {
        buffer_ = std::make_unique<Buffer>(STDIN_FILENO);
    } else {
        // Opened without waiting, so that a pipe without a writer cannot hold us up.
        fd_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
        struct stat st {};
        if (fd_ < 0) {
            why_ = std::strerror(errno);
        } else if (::fstat(fd_, &st) != 0) {
            why_ = std::strerror(errno);
        } else if (S_ISDIR(st.st_mode)) {
            why_ = "it is a folder, not a script";
        } else if (!S_ISREG(st.st_mode)) {
            why_ = "it is not a file but a device, a pipe or a socket (\"-\" reads standard input)";
        } else {
            ::fcntl(fd_, F_SETFL, ::fcntl(fd_, F_GETFL) & ~O_NONBLOCK);
            buffer_ = std::make_unique<Buffer>(fd_);
        }
        if (!why_.empty()) return;
    }
    stream_ = std::make_unique<std::istream>(buffer_.get());
}

ScriptSource::~ScriptSource() {
    stream_.reset();
    if (fd_ >= 0) ::close(fd_);
}

std::string ScriptSource::readError() const {
    return buffer_ && buffer_->error() ? std::strerror(buffer_->error()) : std::string();
}

} // namespace tw
