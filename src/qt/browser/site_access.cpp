// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/browser/site_access.h"

#include <QCryptographicHash>
#include <QMap>
#include <QSet>
#include <QSslCertificate>
#include <QStringList>
#include <QWebEngineCertificateError>
#include <utility>

namespace kelvor::qt {

namespace {

QMap<std::pair<QString, QString>, Login>& logins() {
    static QMap<std::pair<QString, QString>, Login> kept;
    return kept;
}

QSet<std::pair<QString, QByteArray>>& trusted() {
    static QSet<std::pair<QString, QByteArray>> kept;
    return kept;
}

QByteArray fingerprint(const QSslCertificate& certificate) {
    return certificate.digest(QCryptographicHash::Sha256);
}

QString nameOr(const QString& name, const char* otherwise) {
    return name.isEmpty() ? QString::fromLatin1(otherwise) : name;
}

}  // namespace

QString serverOf(const QUrl& url) {
    return url.url(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment);
}

std::optional<Login> loginFor(const QUrl& url, const QString& realm) {
    const auto found = logins().constFind({serverOf(url), realm});
    return found == logins().constEnd() ? std::nullopt : std::optional(*found);
}

void rememberLogin(const QUrl& url, const QString& realm, const Login& login) {
    logins()[{serverOf(url), realm}] = login;
}

bool isTrusted(const QUrl& url, const QSslCertificate& certificate) {
    return trusted().contains({serverOf(url), fingerprint(certificate)});
}

void trust(const QUrl& url, const QSslCertificate& certificate) {
    trusted().insert({serverOf(url), fingerprint(certificate)});
}

QString describe(const QWebEngineCertificateError& error) {
    const QList<QSslCertificate> chain = error.certificateChain();
    QStringList lines{
        QStringLiteral("The certificate of %1 cannot be trusted, so nothing was loaded.").arg(error.url().host()),
        error.description()};
    if (!chain.isEmpty()) {
        const QSslCertificate& own = chain.first();
        lines << QStringLiteral("It was issued to \"%1\" by \"%2\" and ends on %3.")
                     .arg(nameOr(own.subjectDisplayName(), "nobody"), nameOr(own.issuerDisplayName(), "nobody"),
                          own.expiryDate().date().toString(Qt::ISODate))
              << QStringLiteral("SHA-256: %1").arg(QString::fromLatin1(fingerprint(own).toHex(':').toUpper()));
    }
    return lines.join(QStringLiteral("\n\n"));
}

}  // namespace kelvor::qt
