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
        for (const int descriptor : {tcp_, udp_, silent_}) close(descriptor);
    }

    /// What is answered to GET `path`; anything else gets 404. An answer without a body redirects to `type`.
    void serve(const std::string& path, const std::string& type, const std::string& body) {
        const std::string lines =
            body.empty() ? "302 Found\r\nLocation: " : "200 OK\r\nCache-Control: max-age=3600\r\nContent-Type: ";
        answers_["GET " + path + " HTTP/1.1"] =
            lines + type + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    }

    /// Answers GET `path` with the status and the lines of a header, and no body. A request that holds `opener` gets
    /// what serve() told for the path.
    void refuse(const std::string& path, const std::string& statusAndHeader, const std::string& opener = "\n\n") {
        refusals_["GET " + path + " HTTP/1.1"] = {statusAndHeader + "\r\nContent-Length: 0\r\n\r\n", opener};
    }

    /// Takes the next connection and never answers on it.
    void keepSilent() { keepsSilent_ = true; }
    bool isSilent() const { return silent_ >= 0; }
    /// Whether the other side has given up the connection that was kept silent.
    bool isGivenUp() const {
        char bytes[4096];
        ssize_t count = 0;
        while ((count = recv(silent_, bytes, sizeof bytes, MSG_DONTWAIT)) > 0) {
        }
        return count == 0;
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
        if (std::exchange(keepsSilent_, false)) {
            silent_ = connection;
            return;
        }
        constexpr timeval longestSilence{.tv_sec = 0, .tv_usec = 300'000};
        setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &longestSilence, sizeof longestSilence);
        char bytes[4096];
        const ssize_t count = recv(connection, bytes, sizeof bytes, 0);
        const std::string request(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        const std::string text = "HTTP/1.1 " + answerTo(request);
        send(connection, text.data(), text.size(), MSG_NOSIGNAL);
        close(connection);
        heard_.push_back(firstLine(request));
    }

    static std::string firstLine(const std::string& request) { return request.substr(0, request.find("\r\n")); }

    std::string answerTo(const std::string& request) const {
        const std::string line = firstLine(request);
        const auto refusal = refusals_.find(line);
        if (refusal != refusals_.end() && request.find(refusal->second.opener) == std::string::npos)
            return refusal->second.answer;
        const auto known = answers_.find(line);
        return known != answers_.end() ? known->second : "404 Not Found\r\nContent-Length: 0\r\n\r\n";
    }

    int port_ = 0;  ///< before the sockets, which settle it
    int tcp_ = bound(SOCK_STREAM, port_);
    int udp_ = bound(SOCK_DGRAM, port_);
    QSocketNotifier connections_{tcp_, QSocketNotifier::Read};
    QSocketNotifier datagrams_{udp_, QSocketNotifier::Read};
    bool keepsSilent_ = false;
    int silent_ = -1;
    std::map<std::string, std::string> answers_;
    struct Refusal {
        std::string answer;
        std::string opener;  ///< what a request must hold to be let through
    };
    std::map<std::string, Refusal> refusals_;
    std::vector<std::string> heard_;
};

}  // namespace kelvor
