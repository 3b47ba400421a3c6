// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/pictures.h"

#include <fcntl.h>

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QWidget>
#include <QXmlStreamReader>
#include <cmath>
#include <utility>

#include "files/file_error.h"
#include "files/regular_file.h"

namespace kelvor::qt {

namespace {

/// The dots held of one picture at the most: 64 MB.
constexpr qint64 mostDots = qint64{16} << 20;

/// The dots that are read at the most; more would take longer than two seconds.
constexpr qint64 mostReadDots = qint64{128} << 20;

struct QtPicture : Picture {
    QtPicture(const QSize& size, QImage held) : Picture(size.width(), size.height()), image(std::move(held)) {}

    const QImage image;  ///< null when the picture is too large to be read
};

qint64 dotsOf(const QSize& size) {
    return qint64{size.width()} * size.height();
}

/// The size, with no more than mostDots in it.
QSize heldSize(const QSize& size) {
    const double factor = std::sqrt(static_cast<double>(mostDots) / static_cast<double>(dotsOf(size)));
    return factor >= 1 ? size : (QSizeF(size) * factor).toSize().expandedTo({1, 1});
}

/// Whether the reader refuses to hold the picture as it is, which most kinds have to before they can be made smaller.
bool exceedsMemory(const QSize& size) {
    constexpr qint64 bytesOfDot = 4;
    return dotsOf(size) * bytesOfDot > qint64{QImageReader::allocationLimit()} << 20;
}

Error invalidPictureError(const std::string& path) {
    return pathError(error_number::invalidPicture, "Invalid picture", path);
}

/// The dots of a picture of that size; null when it is too large.
QImage readDots(QImageReader& reader, const QSize& size, const std::string& path) {
    if (dotsOf(size) > mostReadDots) return {};
    reader.setScaledSize(heldSize(size));
    QImage image = reader.read();
    if (image.isNull() && !exceedsMemory(size)) throw invalidPictureError(path);
    return image;
}

/// A drawing without what it would fetch from other files: one that is a pipe would be waited for without end.
QByteArray withoutOtherFiles(QIODevice& drawing) {
    QByteArray text;
    QXmlStreamReader in(&drawing);
    in.setNamespaceProcessing(false);
    QXmlStreamWriter out(&text);
    while (!in.atEnd()) {
        in.readNext();
        if (in.isStartElement() && QStringView(in.name()).split(QLatin1Char(':')).last() == QLatin1String("image")) {
            in.skipCurrentElement();
        } else if (in.isStartElement() || in.isEndElement() || in.isCharacters()) {
            out.writeCurrentToken(in);
        }
    }
    return text;
}

}  // namespace

std::shared_ptr<const Picture> loadPicture(const std::string& path) {
    const auto opened = openRegularFile(path, O_RDONLY);
    if (!opened) throw fileError(ENOENT, path);
    QFile file;
    file.open(opened->file.descriptor(), QIODevice::ReadOnly);
    QBuffer drawing;
    QImageReader reader(&file);
    if (reader.format().startsWith("svg")) {
        drawing.setData(withoutOtherFiles(file));
        drawing.open(QIODevice::ReadOnly);
        reader.setDevice(&drawing);
    }
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    if (stored.isEmpty()) throw invalidPictureError(path);
    QImage image = readDots(reader, stored, path);
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    return std::make_shared<QtPicture>(turned ? stored.transposed() : stored, std::move(image));
}

void paintPicture(const Picture& picture, QWidget& widget, const QRect& exposed) {
    QPainter painter(&widget);
    const QImage& image = static_cast<const QtPicture&>(picture).image;
    if (image.isNull()) {
        constexpr int margin = 10;
        return painter.drawText(margin, margin + painter.fontMetrics().ascent(),
                                QStringLiteral("Too large to be shown"));
    }
    const double across = static_cast<double>(image.width()) / widget.width();
    const double down = static_cast<double>(image.height()) / widget.height();
    const QRectF source(exposed.x() * across, exposed.y() * down, exposed.width() * across, exposed.height() * down);
    painter.drawImage(QRectF(exposed), image, source);
}

}  // namespace kelvor::qt
