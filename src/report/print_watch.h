// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/print_queue.h"

#include <QObject>
#include <QTimer>

namespace morvane {

/// Follows a document that was handed to a queue until it is printed, and tells what becomes of it. It goes
/// by itself when nothing is left to tell.
class Print_Watch : public QObject {
    Q_OBJECT

  public:
    /// Asks every `interval` milliseconds.
    Print_Watch(Print_Job print_job, QObject* parent, int interval = 1000);

  Q_SIGNALS:
    void Said(const QString& state);    ///< how far it is, for a line of the window
    void Failed(const QString& reason); ///< it is not printed, or not without help; told once

  private:
    void Look();
    void Take(const Job_State& state);
    void Fail(const QString& reason);

    const Print_Job job;
    QTimer timer;
    int looks = 0;
    int silent_looks = 0; ///< one after the other without an answer or without reaching the printer
    bool failed = false;
};

} // namespace morvane
