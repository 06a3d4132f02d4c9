// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/recorded_sheet.h"

#include <QAbstractScrollArea>
#include <QPoint>

namespace morvane {

/// The sheet of a preview: paints one page of a recorded report.
class Yousi : public QWidget {
    Q_OBJECT

  public:
    explicit Yousi(QWidget* parent);

    /// The page to show and its size in millimetres on the screen.
    void Show_Page(const Recorded_Sheet& sheet, std::size_t page, double width, double height);

  Q_SIGNALS:
    void Dragged(const QPoint& distance);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    [[nodiscard]] double Dots_Per_Mm() const;

    const Recorded_Sheet* shown = nullptr;
    std::size_t shown_page = 0;
    bool drag = false;
    QPoint pressed; ///< where the drag began, on the sheet
};

/// The desk on which the sheet lies: it can be dragged, scrolled by wheel, bars and keys, and enlarged with
/// Ctrl and the wheel.
class Sheet_View : public QAbstractScrollArea {
    Q_OBJECT

  public:
    explicit Sheet_View(QWidget* parent = nullptr);

    [[nodiscard]] Yousi* Sheet() const { return sheet; }

    /// Shows a page; the place that is in the middle stays there where the size changes.
    void Show_Page(const Recorded_Sheet& record, std::size_t page, double width, double height);

    /// To the upper edge of the sheet, or the lower one.
    void To_Top() { Move_To({sheet->x(), margin}); }
    void To_Bottom() { Move_To({sheet->x(), viewport()->height() - margin - sheet->height()}); }

  Q_SIGNALS:
    void Zoomed(int steps);   ///< Ctrl and the wheel; above 0 larger
    void Page_Turned(int by); ///< a page key at the edge of the sheet

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;

  private:
    void Move_To(QPoint place);
    void Set_Bars();
    void Page_Key(int direction);
    [[nodiscard]] QPoint Rest(QPoint place) const;

    static constexpr int margin = 20; ///< of the desk around the sheet

    Yousi* sheet;
    bool setting_bars = false;
};

} // namespace morvane
