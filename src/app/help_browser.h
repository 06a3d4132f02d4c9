// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QTextBrowser>

namespace morvane {

/// A page of the manual. Pictures are scaled to the page and the display with smooth letters; the toolkit's
/// own scaling drops pixels.
class Help_Browser : public QTextBrowser {
    Q_OBJECT

  public:
    using QTextBrowser::QTextBrowser;

  protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

} // namespace morvane
