// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QLabel>

namespace morvane {

/// A text of a fixed number of lines, broken at the ends of phrases, that keeps its beginning where there is
/// no room for all of it; its tool tip has the whole.
class Elided_Label : public QLabel {
    Q_OBJECT

  public:
    explicit Elided_Label(int line_count = 1) : lines(line_count) { setTextFormat(Qt::PlainText); }

    /// One line asks for its text and is content with a few characters of it, several ask for their height.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Whether all of the text is shown.
    [[nodiscard]] bool Is_Whole() const { return Shown_Lines().join(QString()) == text(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    [[nodiscard]] QStringList Shown_Lines() const;
    int lines;
};

} // namespace morvane
