// SPDX-FileCopyrightText: The Morvane developers
#include "app/help_browser.h"

#include <QImage>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

namespace morvane {

namespace {

constexpr int widest_picture = 740;
constexpr int least_picture = 240;
constexpr int around_picture = 84; // margins of the page and scroll bar

} // namespace

QVariant Help_Browser::loadResource(int type, const QUrl& name) {
    QVariant found = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) {
        return found;
    }
    QImage picture = QImage::fromData(found.toByteArray());
    if (picture.isNull()) {
        return found;
    }
    // In pixels of the display, so that nothing is left for the toolkit to scale.
    const qreal ratio = devicePixelRatioF();
    const int room = std::clamp(viewport()->width() - around_picture, least_picture, widest_picture);
    const int width = qRound(std::min(picture.width(), room) * ratio);
    if (width != picture.width()) {
        picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    }
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace morvane
