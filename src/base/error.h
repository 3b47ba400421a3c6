// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace kelvor {

/// Well-known error numbers. They appear in messages and in the error log, so they never change meaning.
namespace error_number {
constexpr int invalidProcedureCall = 5;
constexpr int overflow = 6;
constexpr int outOfMemory = 7;
constexpr int subscriptOutOfRange = 9;
constexpr int typeMismatch = 13;
constexpr int badFileName = 52;
constexpr int fileNotFound = 53;
constexpr int deviceError = 57;
constexpr int fileAlreadyExists = 58;
constexpr int diskFull = 61;
constexpr int inputPastEnd = 62;
constexpr int deviceUnavailable = 68;
constexpr int permissionDenied = 70;
constexpr int pathAccess = 75;
constexpr int pathNotFound = 76;
constexpr int objectNotSet = 91;
constexpr int invalidPropertyValue = 380;
constexpr int duplicateKey = 457;
constexpr int invalidPicture = 481;
constexpr int dialogCancelled = 32755;
constexpr int elementNotFound = 35601;
}  // namespace error_number

/// The one exception type of the logic. It is caught where events are raised (event.h) and shown by reportError.
class Error : public std::runtime_error {
public:
    Error(int number, const std::string& description, std::string cause = {})
        : std::runtime_error(description), number_(number), cause_(std::move(cause)) {}

    int number() const { return number_; }
    std::string description() const { return what(); }
    /// Why, in sentences for a user who is told in other words what failed; "" when nobody knows. Lines end in CR LF.
    const std::string& cause() const { return cause_; }

private:
    int number_;
    std::string cause_;
};

inline Error outOfMemoryError() {
    return {error_number::outOfMemory, "Out of memory", "There is not enough memory."};
}

inline Error overflowError() {
    return {error_number::overflow, "Overflow"};
}

inline Error objectNotSetError() {
    return {error_number::objectNotSet, "Object variable or With block variable not set"};
}

}  // namespace kelvor
