// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/error.h"

namespace kelvor {

/// Receives what a guarded handler threw. Set once at start; tests set their own.
void setErrorSink(std::function<void(const Error&)> sink);

/// The standard exception that is being handled: an Error as it is, out of memory as error 7, any other as error 5.
Error currentError();

/// Runs `action`; the standard exception that it throws goes to the error sink as its Error, and the caller goes on.
void guarded(const std::function<void()>& action);

/// Lifetime of an event in progress. Objects that end inside their own handlers are kept by retire()
/// until the outermost scope closes.
class EventScope {
public:
    EventScope();
    ~EventScope();
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;
};

/// Keeps `object` alive until no event is in progress any more; ends it at once when none is.
void retire(std::shared_ptr<void> object);

/// Lets an object leave the events it listens to: disconnects when it ends.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    ~Connection() { reset(); }
    Connection(Connection&& other) noexcept : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            reset();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void reset() {
        if (auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
    }

private:
    std::function<void()> disconnect_;
};

/// A control's event. Handlers run in the order of connecting, each inside the guard, so one that fails
/// stops neither the others nor the one who raised the event.
template <typename... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    /// Connects for the event's own lifetime.
    void connect(Handler handler) { handlers_->push_back(std::make_shared<Handler>(std::move(handler))); }

    /// Connects until the returned connection ends. The connection may outlive the event.
    [[nodiscard]] Connection connectScoped(Handler handler) {
        auto entry = std::make_shared<Handler>(std::move(handler));
        handlers_->push_back(entry);
        return Connection([list = std::weak_ptr(handlers_), entry] {
            if (auto handlers = list.lock()) std::erase(*handlers, entry);
        });
    }

    bool isConnected() const { return !handlers_->empty(); }

    /// Runs the handlers that are connected now; those that a handler removes meanwhile are left out.
    /// The event itself may end while its handlers run.
    void raise(Args... args) {
        const EventScope scope;
        const auto list = handlers_;
        const auto current = *list;
        for (const auto& handler : current) {
            if (std::find(list->begin(), list->end(), handler) == list->end()) continue;
            guarded([&] { (*handler)(args...); });
        }
    }

private:
    std::shared_ptr<std::vector<std::shared_ptr<Handler>>> handlers_ =
        std::make_shared<std::vector<std::shared_ptr<Handler>>>();
};

}  // namespace kelvor
