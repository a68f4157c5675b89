// SPDX-License-Identifier: Apache-2.0
// Run-time failures inside a command carry a number and a description, the
// way the legacy program reported them, so one error box serves them all.
#pragma once

#include <stdexcept>
#include <string>

namespace tw {

class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(int number, const std::string& description) : std::runtime_error(description), number_(number) {}
    int number() const { return number_; }
    std::string description() const { return what(); }

  private:
    int number_;
};

// Well-known numbers, as an engineer may have seen them in the old program.
namespace err {
constexpr int kCancel = 32755; // a file or printer dialog was cancelled
constexpr int kFileNotFound = 53;
constexpr int kPathNotFound = 76;
constexpr int kPermissionDenied = 70;
constexpr int kInputPastEnd = 62;
constexpr int kInvalidProperty = 380;
constexpr int kTextReadOnly = 383; // a list-only combo box refuses a text not in its list
constexpr int kOverflow = 6;
constexpr int kTypeMismatch = 13;
constexpr int kInvalidCall = 5;
constexpr int kFileAccess = 75;
constexpr int kDeviceIo = 57;
constexpr int kDiskFull = 61;
constexpr int kDllNotFound = 48;
constexpr int kEntryNotFound = 453; // the library has no such entry point
constexpr int kInternalError = 51;
constexpr int kUserInterrupt = 18; // the user ended a program Run was waiting for
constexpr int kTimeout = 286;      // a program ran past the time limit and was ended
constexpr int kGridInvalidRow = 30009;
constexpr int kGridLastRow = 30015;
} // namespace err

// "Error Number:" TAB n CR LF "Description:" TAB d CR LF "Please notify administrator."
std::string standardErrorText(int number, const std::string& description);

// What the program did not foresee (a library's exception), as a run-time error.
RuntimeError internalError(const std::string& what);

} // namespace tw
