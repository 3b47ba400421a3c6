// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/event.h"

#include <exception>
#include <new>

namespace kelvor {

namespace {

std::function<void(const Error&)>& errorSink() {
    static std::function<void(const Error&)> sink;
    return sink;
}

int eventDepth = 0;

std::vector<std::shared_ptr<void>>& retired() {
    static std::vector<std::shared_ptr<void>> objects;
    return objects;
}

}  // namespace

void setErrorSink(std::function<void(const Error&)> sink) {
    errorSink() = std::move(sink);
}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return outOfMemoryError();
    } catch (const std::exception& error) {
        return {error_number::invalidProcedureCall, error.what()};
    }
}

void guarded(const std::function<void()>& action) {
    const EventScope scope;
    try {
        action();
    } catch (const std::exception&) {
        if (errorSink()) errorSink()(currentError());
    }
}

EventScope::EventScope() {
    ++eventDepth;
}

EventScope::~EventScope() {
    if (eventDepth == 1) {
        // An object that ends may retire others; they join the same round.
        while (!retired().empty()) {
            const auto round = std::exchange(retired(), {});
        }
    }
    --eventDepth;
}

void retire(std::shared_ptr<void> object) {
    if (eventDepth > 0) retired().push_back(std::move(object));
}

}  // namespace kelvor
