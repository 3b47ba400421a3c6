// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/themed_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "qt/colors.h"

namespace kelvor::qt {

namespace {

/// "#" and six digits.
constexpr qsizetype colorLength = 7;

/// Of 1: how far the colours of a disabled drawing go towards its ink.
constexpr double disabledFade = 0.6;

/// The drawing with its colours as a palette wants them.
QByteArray recolored(QByteArray drawing, const QColor& ink, bool enabled) {
    for (auto at = drawing.indexOf('#'); at >= 0; at = drawing.indexOf('#', at + colorLength)) {
        const QByteArray drawn = drawing.mid(at, colorLength);
        if (drawn == drawnInk) {
            drawing.replace(at, colorLength, ink.name().toLatin1());
        } else if (!enabled) {
            const QColor color(QString::fromLatin1(drawn));
            const QColor grey = QColor::fromHsl(0, 0, color.lightness());
            drawing.replace(at, colorLength, between(grey, ink, disabledFade).name().toLatin1());
        }
    }
    return drawing;
}

class ThemedIconEngine : public QIconEngine {
public:
    explicit ThemedIconEngine(QString file) : file_(std::move(file)) {}

    QIconEngine* clone() const override { return new ThemedIconEngine(file_); }

    QString key() const override { return QStringLiteral("KelvorThemedIcon"); }

    /// @param size  in pixels of the device
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        const bool enabled = mode != QIcon::Disabled;
        const auto group = enabled ? QPalette::Active : QPalette::Disabled;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        const QColor ink = QGuiApplication::palette().color(group, role);
        const QString key = QStringLiteral("%1 %2x%3 %4 %5")
                                .arg(file_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(ink.name())
                                .arg(enabled);
        QPixmap pixmap;
        if (QPixmapCache::find(key, &pixmap)) return pixmap;
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        if (drawing_.isEmpty()) drawing_ = readDrawing();
        QSvgRenderer renderer(recolored(drawing_, ink, enabled));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        QPixmapCache::insert(key, pixmap);
        return pixmap;
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(place, pixmap((QSizeF(place.size()) * scale).toSize(), mode, state));
    }

private:
    QByteArray readDrawing() const {
        QFile file(file_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString file_;
    QByteArray drawing_;
};

}  // namespace

QIcon themedIcon(const QString& file) {
    return QIcon(new ThemedIconEngine(file));
}

}  // namespace kelvor::qt
