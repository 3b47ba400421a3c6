#pragma once

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kelvor {

/// A web server for pages under test, and an ear for what they send: TCP and UDP on one port of this machine.
class LoopbackListener {
public:
    LoopbackListener();
    ~LoopbackListener();
    LoopbackListener(const LoopbackListener&) = delete;
    LoopbackListener& operator=(const LoopbackListener&) = delete;

    /// What is answered to GET `path`; anything else gets 404. A body that begins with "Location: " redirects.
    void serve(const std::string& path, const std::string& type, const std::string& body);

    /// "127.0.0.1:" and the port.
    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

    /// What has come in since the last call: first lines of requests, "connection" for one without a request, and
    /// "datagram".
    std::vector<std::string> heard();

private:
    void listen();
    void answer(int connection);
    void note(const std::string& what);

    int port_ = 0;  ///< before the sockets, which settle it
    int tcp_ = -1;
    int udp_ = -1;
    int stop_[2] = {-1, -1};
    std::mutex mutex_;
    std::map<std::string, std::string> answers_;
    std::vector<std::string> heard_;
    std::thread thread_;
};

}  // namespace kelvor
