#pragma once

#include <string>

namespace kelvor {

/// A stored text under its key.
struct Setting {
    std::string key;
    std::string value;
};

}  // namespace kelvor
