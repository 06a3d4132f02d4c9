// SPDX-FileCopyrightText: The Morvane developers
#include "report/print_watch.h"

#include <utility>

namespace morvane {

namespace {

// In looks, one a second: a printer that warms up takes its time, one that is switched off never answers.
constexpr int most_silent_looks = 20;
constexpr int patience = 60;
constexpr int most_looks = 600;

} // namespace

Print_Watch::Print_Watch(Print_Job print_job, QObject* parent, int interval)
    : QObject(parent), job(std::move(print_job)) {
    connect(&timer, &QTimer::timeout, this, &Print_Watch::Look);
    timer.start(interval);
}

void Print_Watch::Look() {
    ++looks;
    try {
        Take(State_Of(job));
    } catch (const Print_Failure& failure) {
        if (++silent_looks >= most_silent_looks) {
            Fail(QString::fromUtf8(failure.what()));
        }
    }
    if (looks == patience) {
        Fail(QStringLiteral("プリンタ「%1」の印刷が終わりません。").arg(QString::fromStdString(job.queue)));
    }
    if (looks >= most_looks) {
        deleteLater();
    }
}

void Print_Watch::Take(const Job_State& state) {
    const QString queue = QString::fromStdString(job.queue);
    silent_looks = state.progress == Job_Progress::Connecting ? silent_looks + 1 : 0;
    switch (state.progress) {
    case Job_Progress::Done:
        timer.stop();
        Q_EMIT Said(QStringLiteral("プリンタ「%1」で印刷しました。").arg(queue));
        deleteLater();
        break;
    case Job_Progress::Failed:
        timer.stop();
        Fail(QString::fromStdString(state.reason));
        deleteLater();
        break;
    case Job_Progress::Held_Up:
        Fail(QString::fromStdString(state.reason));
        break;
    case Job_Progress::Connecting:
        if (silent_looks == most_silent_looks) {
            Fail(QStringLiteral("プリンタ「%1」につながりません。").arg(queue));
        }
        break;
    case Job_Progress::Printing:
        if (!failed) {
            Q_EMIT Said(QStringLiteral("プリンタ「%1」で印刷しています。").arg(queue));
        }
        break;
    case Job_Progress::Waiting:
        break;
    }
}

void Print_Watch::Fail(const QString& reason) {
    if (!std::exchange(failed, true)) {
        Q_EMIT Failed(reason);
    }
}

} // namespace morvane
