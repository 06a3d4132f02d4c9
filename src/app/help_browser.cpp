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
    if (picture.isNull()) {
        return found;
    }
    // In pixels of the display, so that nothing is left for the toolkit to scale.
    const qreal ratio = devicePixelRatioF();
    const int width = qRound(std::min(picture.width(), widest_picture) * ratio);
    if (width != picture.width()) {
        picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    }
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace morvane
