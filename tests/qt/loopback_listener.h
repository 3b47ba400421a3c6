// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtNetwork>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelvor {

/// A web server for pages under test, and an ear for what they send. It works while events run.
class LoopbackListener {
public:
    explicit LoopbackListener(std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>())
        : server_(std::move(server)) {
        if (!server_->listen(QHostAddress::LocalHost)) throw std::runtime_error("no loopback port");
        QObject::connect(server_.get(), &QTcpServer::pendingConnectionAvailable,
                         [this] { take(*server_->nextPendingConnection()); });
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
    void refuse(const std::string& path, const std::string& statusAndHeader, const std::string& opener) {
        refusals_["GET " + path + " HTTP/1.1"] = {statusAndHeader + "\r\nContent-Length: 0\r\n\r\n", opener};
    }

    /// Takes the next connection and never answers on it.
    void keepSilent() { keepsSilent_ = true; }
    bool isSilent() const { return silent_ != nullptr; }
    /// Whether the other side has given up the connection that was kept silent.
    bool isGivenUp() const { return silent_->state() == QAbstractSocket::UnconnectedState; }

    std::string address() const { return "127.0.0.1:" + std::to_string(server_->serverPort()); }

    /// What has come in since the last call: first lines of requests, and "" for a connection without one.
    std::vector<std::string> heard() { return std::exchange(heard_, {}); }

private:
    void take(QTcpSocket& connection) {
        if (std::exchange(keepsSilent_, false)) {
            silent_ = &connection;
            return;
        }
        heard_.emplace_back();
        QObject::connect(&connection, &QTcpSocket::readyRead, [this, &connection] {
            const std::string request = connection.peek(1 << 16).toStdString();
            if (request.find("\r\n\r\n") == std::string::npos) return;
            connection.readAll();
            if (!heard_.empty() && heard_.back().empty()) heard_.pop_back();
            heard_.push_back(request.substr(0, request.find("\r\n")));
            connection.write(("HTTP/1.1 " + answerTo(heard_.back(), request)).c_str());
            connection.disconnectFromHost();
        });
    }

    std::string answerTo(const std::string& line, const std::string& request) {
        const auto refusal = refusals_.find(line);
        const bool isRefused = refusal != refusals_.end() && request.find(refusal->second.opener) == std::string::npos;
        const std::string& answer = isRefused ? refusal->second.answer : answers_[line];
        return answer.empty() ? "404 Not Found\r\nContent-Length: 0\r\n\r\n" : answer;
    }

    struct Refusal {
        std::string answer;
        std::string opener;  ///< what a request must hold to be let through
    };

    bool keepsSilent_ = false;
    const QTcpSocket* silent_ = nullptr;
    std::map<std::string, std::string> answers_;
    std::map<std::string, Refusal> refusals_;
    std::vector<std::string> heard_;
    std::unique_ptr<QTcpServer> server_;
};

}  // namespace kelvor
