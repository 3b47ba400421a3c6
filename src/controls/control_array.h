// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "controls/control.h"

namespace kelvor {

/// Controls of one kind under one name: number i from 0 is the control "name_i".
template <typename T>
class ControlArray {
public:
    /// @param captions  one control for each
    /// @param more      what each of them is given behind its caption
    template <typename... More>
    ControlArray(Form& form, const std::string& name, const std::vector<std::string>& captions, const More&... more) {
        for (const std::string& caption : captions)
            controls_.push_back(
                std::make_unique<T>(form, name + "_" + std::to_string(controls_.size()), caption, more...));
    }

    std::size_t size() const { return controls_.size(); }
    T& operator[](std::size_t index) const { return *controls_.at(index); }

private:
    std::vector<std::unique_ptr<T>> controls_;
};

}  // namespace kelvor
