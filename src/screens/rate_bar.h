// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QWidget>

namespace morvane {

/// A horizontal bar that tells how much of something is reached, with the values at its two ends below it. A
/// rate below 0 shows no bar, one above 100 a full one.
class Rate_Bar : public QWidget {
  public:
    explicit Rate_Bar(QWidget* parent = nullptr);

    /// `from` and `to` stand below the ends; empty ones leave no room for texts.
    void Set_Ends(const QString& from, const QString& to);

    /// Fills with stripes, for the bar of what was before beside that of what is.
    void Set_Hatched(bool is_hatched);

    /// `percent` of the whole width.
    void Set_Rate(double percent);
    [[nodiscard]] double Rate() const { return rate; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] bool Has_Texts() const { return !lower.isEmpty() || !upper.isEmpty(); }

    QString lower;
    QString upper;
    double rate = 0.0;
    bool hatched = false;
};

} // namespace morvane
