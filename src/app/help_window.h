// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QWidget>
#include <filesystem>

class QLineEdit;
class QTextBrowser;

namespace morvane {

/// The user's manual in a window of its own: pages of a folder, an index, back and forward, search in the
/// page.
class Help_Window : public QWidget {
    Q_OBJECT

  public:
    explicit Help_Window(const std::filesystem::path& manual);

    /// Shows the page of a screen, or the index where it has none, over `owner`.
    void Show_Page(const QString& page, QWidget* owner);

    QTextBrowser* browser;

  private:
    void Find_Next();

    QString folder;
    QLineEdit* search;
};

} // namespace morvane
