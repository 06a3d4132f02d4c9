// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/radar_chart.h"

#include <QWidget>

namespace morvane {

/// A chart on the screen: drawn by the routine that draws it on paper, as large as the widget, its texts
/// larger with it. It is never smaller than its texts need.
class Chart_View : public QWidget {
    Q_OBJECT

  public:
    explicit Chart_View(const Radar_Chart& shown, QWidget* parent = nullptr);

    [[nodiscard]] const Radar_Chart& Chart() const { return chart; }

    /// Draws the chart as it is shown: in millimetres of the sheet, of which `Dots_Per_Mm` make one.
    void Draw(Print_Target& target) const;
    [[nodiscard]] double Dots_Per_Mm() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QSize Room_At(double zoom) const;

    const Radar_Chart chart;
    const Room least;
};

} // namespace morvane
