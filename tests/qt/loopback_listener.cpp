#include "tests/qt/loopback_listener.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>

namespace kelvor {

namespace {

constexpr timeval longestSilence{.tv_sec = 0, .tv_usec = 300'000};

int bound(int type, int& port) {
    const int descriptor = socket(AF_INET, type | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* general = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (bind(descriptor, general, size) != 0 || getsockname(descriptor, general, &size) != 0)
        throw std::runtime_error("no loopback port");
    port = ntohs(address.sin_port);
    return descriptor;
}

}  // namespace

LoopbackListener::LoopbackListener() : tcp_(bound(SOCK_STREAM, port_)), udp_(bound(SOCK_DGRAM, port_)) {
    if (::listen(tcp_, 64) != 0 || pipe(stop_) != 0) throw std::runtime_error("no listener");
    thread_ = std::thread([this] { listen(); });
}

LoopbackListener::~LoopbackListener() {
    close(stop_[1]);
    thread_.join();
    for (const int descriptor : {tcp_, udp_, stop_[0]}) close(descriptor);
}

void LoopbackListener::serve(const std::string& path, const std::string& type, const std::string& body) {
    const std::string length = "Content-Length: " + std::to_string(body.size()) + "\r\n";
    const std::scoped_lock lock(mutex_);
    if (body.starts_with("Location: "))
        answers_[path] = "HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\n" + body + "\r\n\r\n";
    else
        answers_[path] =
            "HTTP/1.1 200 OK\r\nConnection: close\r\nCache-Control: max-age=3600\r\nContent-Type: " + type + "\r\n" +
            length + "\r\n" + body;
}

std::vector<std::string> LoopbackListener::heard() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(heard_, {});
}

void LoopbackListener::note(const std::string& what) {
    const std::scoped_lock lock(mutex_);
    heard_.push_back(what);
}

void LoopbackListener::listen() {
    std::vector<std::jthread> answers;
    pollfd waiting[] = {{tcp_, POLLIN, 0}, {udp_, POLLIN, 0}, {stop_[0], POLLIN, 0}};
    while (poll(waiting, std::size(waiting), -1) > 0 && waiting[2].revents == 0) {
        char bytes[16];
        if (waiting[1].revents != 0 && recv(udp_, bytes, sizeof bytes, 0) >= 0) note("datagram");
        if (waiting[0].revents == 0) continue;
        const int connection = accept4(tcp_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0) answers.emplace_back([this, connection] { answer(connection); });
    }
}

void LoopbackListener::answer(int connection) {
    setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &longestSilence, sizeof longestSilence);
    std::string request;
    char bytes[4096];
    while (request.find("\r\n\r\n") == std::string::npos) {
        const ssize_t count = recv(connection, bytes, sizeof bytes, 0);
        if (count <= 0) break;
        request.append(bytes, static_cast<std::size_t>(count));
    }
    const std::string line = request.substr(0, request.find("\r\n"));
    note(request.empty() ? "connection" : line);
    const std::size_t path = line.find(' ') + 1;
    const std::scoped_lock lock(mutex_);
    const auto known = answers_.find(line.substr(path, line.find(' ', path) - path));
    const std::string text = known != answers_.end() ? known->second
                                                     : "HTTP/1.1 404 Not Found\r\nConnection: close\r\n"
                                                       "Content-Length: 0\r\n\r\n";
    send(connection, text.data(), text.size(), MSG_NOSIGNAL);
    close(connection);
}

}  // namespace kelvor
