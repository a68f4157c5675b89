// SPDX-License-Identifier: Apache-2.0
// Where a replay script comes from and how its lines are taken: a regular
// file or standard input, line by line as the lines arrive, none longer
// than a line of a script can sensibly be.
#pragma once

#include <cstddef>
#include <istream>
#include <memory>
#include <streambuf>
#include <string>

namespace tw {

// The longest line a script may hold, without its line break.
inline constexpr std::size_t kMaxScriptLine = 64 * 1024;

enum class ScriptLine { Read, TooLong, End };

// The next line of `in`, without its line feed, into `line`. TooLong when
// it holds more than kMaxScriptLine bytes: what follows is not read.
ScriptLine nextScriptLine(std::istream& in, std::string& line);

// A script opened for reading: standard input for "-", otherwise a regular
// file (a folder, a device or a pipe is refused, and nothing waits for one).
class ScriptSource {
  public:
    // Empty `why` when it opened; otherwise what stands in the way, in plain words.
    explicit ScriptSource(const std::string& path);
    ~ScriptSource();
    ScriptSource(const ScriptSource&) = delete;
    ScriptSource& operator=(const ScriptSource&) = delete;

    const std::string& why() const { return why_; }
    std::istream& stream() { return *stream_; }
    // Set once a read failed; the reason in plain words.
    std::string readError() const;

  private:
    class Buffer;
    int fd_ = -1;
    std::string why_;
    std::unique_ptr<Buffer> buffer_;
    std::unique_ptr<std::istream> stream_;
};

} // namespace tw
