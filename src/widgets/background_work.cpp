// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/background_work.h"

#include "session/progress.h"
#include "widgets/form.h"
#include "widgets/theme.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <atomic>
#include <exception>
#include <memory>
#include <thread>

namespace morvane {

namespace {

constexpr int unseen_ms = 500; // work that is done sooner shows nothing
constexpr int look_ms = 40;
constexpr int text_width = 360;

/// What the thread of a job and the window that waits for it share. The job writes the failure before it
/// says that it has ended.
struct Shared_Work {
    Progress progress;
    std::exception_ptr failure;
    std::atomic<bool> has_ended = false;

    void Run(const std::function<void(Progress&)>& job) noexcept {
        try {
            job(progress);
        } catch (...) {
            failure = std::current_exception();
        }
        has_ended = true;
        has_ended.notify_all();
    }
};

/// Waits for a job, modal to the window of its form from the start. It looks after the job now and then; the
/// job knows nothing of it, so that either may be gone first.
class Work_Window : public QDialog {
  public:
    Work_Window(Form& form, Shell_Port& shell_port, const Work_Notice& work_notice,
                std::function<void()> delivery)
        : QDialog(&form, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), owner(form),
          shell(shell_port), notice(work_notice), deliver(std::move(delivery)), message(new QLabel),
          bar(new QProgressBar) {
        setObjectName(QStringLiteral("Work_Window"));
        setWindowTitle(notice.title);
        setWindowModality(Qt::WindowModal);
        message->setObjectName(QStringLiteral("Lbl_Work"));
        message->setTextFormat(Qt::PlainText);
        message->setText(notice.message);
        message->setWordWrap(true);
        message->setFixedWidth(text_width);
        bar->setTextVisible(false);
        bar->setRange(0, 0);
        bar->setAccessibleName(notice.title);
        auto* buttons = new QDialogButtonBox;
        cancel = buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole);
        cancel->setObjectName(QStringLiteral("Cmd_Cancel"));
        connect(cancel, &QPushButton::clicked, this, &Work_Window::reject);
        auto* lines = new QVBoxLayout(this);
        lines->setSpacing(theme::panel_gap);
        lines->addWidget(message);
        lines->addWidget(bar);
        lines->addWidget(buttons);
        connect(&look, &QTimer::timeout, this, &Work_Window::Look);
    }

    ~Work_Window() override {
        work->progress.Ask_To_Stop();
        if (!notice.can_be_left) {
            work->has_ended.wait(false);
        }
    }

    void Start(std::function<void(Progress&)> job) {
        // Modal, but not yet seen.
        setAttribute(Qt::WA_DontShowOnScreen);
        show();
        QTimer::singleShot(unseen_ms, this, &Work_Window::Come_Up);
        look.start(look_ms);
        std::thread([shared = work, job = std::move(job)] { shared->Run(job); }).detach();
    }

    void reject() override {
        work->progress.Ask_To_Stop();
        if (notice.can_be_left) {
            Leave();
            return;
        }
        cancel->setEnabled(false);
        message->setText(QStringLiteral("中止しています…"));
    }

  private:
    void Come_Up() {
        if (look.isActive()) {
            hide();
            setAttribute(Qt::WA_DontShowOnScreen, false);
            show();
        }
    }

    void Look() {
        if (work->has_ended) {
            Finish();
            return;
        }
        const Progress::State now = work->progress.Now();
        if (!now.message.empty() && cancel->isEnabled()) {
            message->setText(QString::fromStdString(now.message));
        }
        bar->setRange(0, now.total);
        bar->setValue(now.done);
    }

    /// Gives the form its input back.
    void Leave() {
        look.stop();
        hide();
        setParent(nullptr); // the form is free for other work
        deleteLater();
    }

    void Finish() {
        const bool is_wanted = owner.isVisible();
        Leave();
        if (is_wanted) {
            shell.Guard([ended = work, give = deliver] {
                try {
                    if (ended->failure) {
                        std::rethrow_exception(ended->failure);
                    }
                } catch (const Progress::Stopped&) {
                    return;
                }
                give();
            });
        }
    }

    Form& owner;
    Shell_Port& shell;
    Work_Notice notice;
    std::function<void()> deliver;
    std::shared_ptr<Shared_Work> work = std::make_shared<Shared_Work>();
    QLabel* message;
    QProgressBar* bar;
    QPushButton* cancel;
    QTimer look;
};

} // namespace

void Run_In_Background(Form& owner, Shell_Port& shell, const Work_Notice& notice,
                       std::function<void(Progress&)> job, std::function<void()> deliver) {
    if (owner.findChild<QDialog*>(QStringLiteral("Work_Window"), Qt::FindDirectChildrenOnly) == nullptr) {
        (new Work_Window(owner, shell, notice, std::move(deliver)))->Start(std::move(job));
    }
}

} // namespace morvane
