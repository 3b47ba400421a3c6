#pragma once

#include <string>

#include "platform/dialogs.h"

namespace kelvor {

/// What the user is told of a file: it is not there, cannot be opened, cannot be saved; and why.
inline Message noSuchFile(const std::string& path) {
    return {
        .text = "The file " + path + " does not exist.", .title = "File Open Error", .icon = MessageIcon::exclamation};
}
inline Message openError(const std::string& path, const std::string& cause = {}) {
    return {.text = "An error occurred while opening " + path +
                    "\r\nMake sure that the file is not already locked by another application.",
            .cause = cause,
            .title = "File open error",
            .icon = MessageIcon::critical};
}
inline Message saveError(const std::string& path, const std::string& cause = {}) {
    return {.text = "An error occured while saving the file [" + path + "].",
            .cause = cause,
            .title = "File Save Error",
            .icon = MessageIcon::critical};
}

}  // namespace kelvor
