// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>
#include <optional>

class QSslCertificate;
class QWebEngineCertificateError;

namespace kelvor::qt {

/// Scheme, host and port of an address.
QString serverOf(const QUrl& url);

struct Login {
    QString name;
    QString password;
};

/// Names and passwords that the user has given, by server and realm. They are kept in memory until the program ends.
std::optional<Login> loginFor(const QUrl& url, const QString& realm);
void rememberLogin(const QUrl& url, const QString& realm, const Login& login);

/// Certificates that the user takes although nothing vouches for them, by server, until the program ends.
bool isTrusted(const QUrl& url, const QSslCertificate& certificate);
void trust(const QUrl& url, const QSslCertificate& certificate);

/// What is wrong with a server's certificate, and whose it says that it is.
QString describe(const QWebEngineCertificateError& error);

}  // namespace kelvor::qt
