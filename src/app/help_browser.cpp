// SPDX-FileCopyrightText: The Morvane developers
#include "app/help_browser.h"

#include <QImage>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>

namespace morvane {

namespace {

constexpr int widest_picture = 740; // the window shows it whole as it opens

}

QVariant Help_Browser::loadResource(int type, const QUrl& name) {
    QVariant found = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) {
        return found;
    }
    QImage picture = QImage::fromData(found.toByteArray());
    if (picture.width() <= widest_picture) {
        return found;
    }
    // Pixels of the display, so that a fine display shows all the picture has.
    const int width = std::min(picture.width(), qRound(widest_picture * devicePixelRatioF()));
    picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(static_cast<qreal>(width) / widest_picture);
    return picture;
}

} // namespace morvane
