// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QTextCursor>
#include <QWidget>
#include <filesystem>

class QLabel;
class QLineEdit;
class QTextBrowser;

namespace morvane {

/// The user's manual in a window of its own: pages of a folder, an index, back and forward, search in the
/// page: keys that are typed go to the search, those that scroll to the page.
class Help_Window : public QWidget {
    Q_OBJECT

  public:
    explicit Help_Window(const std::filesystem::path& manual);

    /// Shows the page of a screen, or the index where it has none. The window stays over `owner`, beside the
    /// window in use where the display has the room for both.
    void Show_Page(const QString& page, QWidget* owner);

    QTextBrowser* browser;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* Make_Bar();
    void Place_Beside(const QWidget& used);
    void Load(const QString& page);

    /// Marks all hits of the search; the one in hand becomes the first at or behind `from`.
    void Find_From(int from);
    void Step(int by);
    void Show_Hits();
    void Leave();

    QString folder;
    QLineEdit* search;
    QLabel* count;
    QList<QTextCursor> hits;
    qsizetype in_hand = 0;
};

} // namespace morvane
