// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QLabel>

namespace morvane {

/// Paints a figure in `room`. One that finds no room is squeezed, never cut: a cut figure reads as another.
void Paint_Figure(QPainter& painter, const QRect& room, const QString& text, Qt::Alignment alignment);

/// A label for a figure. It asks for the width of its text and squeezes it where a layout gives less.
class Figure_Label : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace morvane
