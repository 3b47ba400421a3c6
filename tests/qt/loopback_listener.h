#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelvor {

/// A web server for pages under test, and an ear for what they send: TCP and UDP on one port of this machine. It
/// works while events run.
class LoopbackListener {
public:
    LoopbackListener() {
        if (::listen(tcp_, 64) != 0) throw std::runtime_error("no listener");
        QObject::connect(&connections_, &QSocketNotifier::activated,
                         [this] { answer(accept(tcp_, nullptr, nullptr)); });
        QObject::connect(&datagrams_, &QSocketNotifier::activated, [this] {
            char byte = 0;
            if (recv(udp_, &byte, 1, 0) >= 0) heard_.emplace_back("datagram");
        });
    }
    ~LoopbackListener() {
        for (auto* notifier : {&connections_, &datagrams_}) notifier->setEnabled(false);
        for (const int descriptor : {tcp_, udp_}) close(descriptor);
    }

    /// What is answered to GET `path`; anything else gets 404. An answer without a body redirects to `type`.
    void serve(const std::string& path, const std::string& type, const std::string& body) {
        const std::string lines =
            body.empty() ? "302 Found\r\nLocation: " : "200 OK\r\nCache-Control: max-age=3600\r\nContent-Type: ";
        answers_["GET " + path + " HTTP/1.1"] =
            lines + type + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    }

    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

    /// What has come in since the last call: first lines of requests, "" for a connection without one, and "datagram".
    std::vector<std::string> heard() { return std::exchange(heard_, {}); }

private:
    /// A socket on the port; on any if that is 0, which it then is no more.
    static int bound(int type, int& port) {
        const int descriptor = socket(AF_INET, type | SOCK_CLOEXEC, 0);
        sockaddr_in address{.sin_family = AF_INET,
                            .sin_port = htons(static_cast<std::uint16_t>(port)),
                            .sin_addr = {htonl(INADDR_LOOPBACK)},
                            .sin_zero = {}};
        auto* general = reinterpret_cast<sockaddr*>(&address);
        socklen_t size = sizeof address;
        if (bind(descriptor, general, size) != 0 || getsockname(descriptor, general, &size) != 0)
            throw std::runtime_error("no loopback port");
        port = ntohs(address.sin_port);
        return descriptor;
    }

    void answer(int connection) {
        constexpr timeval longestSilence{.tv_sec = 0, .tv_usec = 300'000};
        setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &longestSilence, sizeof longestSilence);
        char bytes[4096];
        const ssize_t count = recv(connection, bytes, sizeof bytes, 0);
        std::string line(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        line.resize(std::min(line.size(), line.find("\r\n")));
        const auto known = answers_.find(line);
        const std::string text =
            "HTTP/1.1 " + (known != answers_.end() ? known->second : "404 Not Found\r\nContent-Length: 0\r\n\r\n");
        send(connection, text.data(), text.size(), MSG_NOSIGNAL);
        close(connection);
        heard_.push_back(line);
    }

    int port_ = 0;  ///< before the sockets, which settle it
    int tcp_ = bound(SOCK_STREAM, port_);
    int udp_ = bound(SOCK_DGRAM, port_);
    QSocketNotifier connections_{tcp_, QSocketNotifier::Read};
    QSocketNotifier datagrams_{udp_, QSocketNotifier::Read};
    std::map<std::string, std::string> answers_;
    std::vector<std::string> heard_;
};

}  // namespace kelvor
