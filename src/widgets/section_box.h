// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QFrame>

class QVBoxLayout;

namespace morvane {

/// A framed group with a heading band. Widgets go into `body`.
class Section_Box : public QFrame {
  public:
    explicit Section_Box(const QString& heading, QWidget* parent = nullptr);

    QVBoxLayout* body;
};

} // namespace morvane
