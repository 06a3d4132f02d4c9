// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QWidget>

namespace morvane {

/// A horizontal bar that tells how much of something is reached, with the values at its two ends below it. A
/// rate below 0 shows no bar, one above 100 a full one.
class Rate_Bar : public QWidget {
  public:
    /// `from` and `to` stand below the ends; empty ones leave no room for texts.
    explicit Rate_Bar(const QString& from = {}, const QString& to = {}, QWidget* parent = nullptr);

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
};

} // namespace morvane
