// SPDX-FileCopyrightText: The Morvane developers
#include "data/store_error.h"
#include "law/run_time_error.h"
#include "session/progress.h"
#include "support/ui_fixture.h"
#include "widgets/form.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <atomic>
#include <thread>

namespace morvane::tests {
namespace {

/// What a job of a test does until it is let go; shared with it, for it may outlive the form.
struct Gate_Of_Job {
    std::atomic<bool> entered = false;
    std::atomic<bool> open = false;
    std::atomic<bool> left = false;
    std::atomic<bool> obeys = false; ///< ends when it is asked to stop
};

int Wait_At(Gate_Of_Job& gate, Progress& progress) {
    gate.entered = true;
    while (!gate.open) {
        if (gate.obeys && progress.Stop().stop_requested()) {
            gate.left = true;
            progress.Stop_If_Asked();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    gate.left = true;
    return 42;
}

class Working_Form : public Form {
  public:
    explicit Working_Form(Shell_Port& shell_port)
        : Form(shell_port, QStringLiteral("Frm_Work"), QStringLiteral("仕事")) {}

    template <class Job>
    void Work(Job job, bool can_be_left = true) {
        Run_Beside({QStringLiteral("仕事"), QStringLiteral("始めています…"), can_be_left}, job,
                   [this](int result) {
                       results.push_back(result);
                       delivered_by = std::this_thread::get_id();
                   });
    }

    [[nodiscard]] QDialog* Window() const {
        return findChild<QDialog*>(QStringLiteral("Work_Window"), Qt::FindDirectChildrenOnly);
    }
    [[nodiscard]] bool Is_Seen() const {
        return Window() != nullptr && Window()->isVisible() &&
               !Window()->testAttribute(Qt::WA_DontShowOnScreen);
    }

    std::vector<int> results;
    std::thread::id delivered_by;
};

class Background_Work : public Ui_Installation {
  protected:
    Background_Work() { form->show(); }
    ~Background_Work() override {
        gate->open = true;
        // The job is the test's own: it ends before what it looks at goes.
        while (gate->entered && !gate->left) {
            std::this_thread::yield();
        }
    }

    void Start(bool can_be_left = true) {
        form->Work([held = gate](Progress& progress) { return Wait_At(*held, progress); }, can_be_left);
    }
    void Expect_Seen() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return form->Is_Seen(); }));
    }
    void Expect_Ended() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return form->Window() == nullptr; }));
    }

    std::shared_ptr<Gate_Of_Job> gate = std::make_shared<Gate_Of_Job>();
    std::unique_ptr<Working_Form> form = std::make_unique<Working_Form>(shell);
};

TEST_F(Background_Work, Short_Work_Shows_No_Window_And_Delivers_Here) {
    form->Work([](Progress&) { return 7; });
    EXPECT_TRUE(form->results.empty()) << "delivered by the event loop";
    EXPECT_TRUE(form->Window()->isModal()) << "from the start";
    while (form->Window() != nullptr) {
        ASSERT_FALSE(form->Is_Seen());
        QTest::qWait(5);
    }
    EXPECT_EQ(form->results, std::vector<int>{7});
    EXPECT_EQ(form->delivered_by, std::this_thread::get_id());
}

TEST_F(Background_Work, A_Window_Tells_How_Far_Long_Work_Is) {
    form->Work([held = gate](Progress& progress) {
        progress.Say("2件目です…");
        progress.Step(1, 4);
        return Wait_At(*held, progress);
    });
    form->Work([](Progress&) { return 1; }); // one at a time
    Expect_Seen();
    auto* const bar = form->Window()->findChild<QProgressBar*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->maximum() == 4; }));
    EXPECT_EQ(bar->value(), 1);
    EXPECT_EQ(Child<QLabel>(*form->Window(), "Lbl_Work")->text(), QStringLiteral("2件目です…"));
    gate->open = true;
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form->results.empty(); }));
    EXPECT_EQ(form->results, std::vector<int>{42});
    EXPECT_EQ(form->Window(), nullptr);
}

TEST_F(Background_Work, Work_That_Can_Be_Left_Is_Cancelled_At_Once) {
    Start();
    Expect_Seen();
    QTest::keyClick(form->Window(), Qt::Key_Escape);
    EXPECT_EQ(form->Window(), nullptr) << "though the job has not heard of it";
    gate->open = true;
    form->Work([](Progress&) { return 8; });
    ASSERT_TRUE(QTest::qWaitFor([this] { return !form->results.empty(); }));
    QTest::qWait(50);
    EXPECT_EQ(form->results, std::vector<int>{8}) << "nothing came of the first";
}

TEST_F(Background_Work, Other_Work_Is_Waited_For) {
    for (const bool obeys : {true, false}) {
        gate->obeys = obeys;
        gate->open = false;
        Start(false);
        Expect_Seen();
        QPointer<QDialog> window = form->Window();
        Click(*window, "Cmd_Cancel");
        EXPECT_EQ(Child<QLabel>(*window, "Lbl_Work")->text(), QStringLiteral("中止しています…"));
        if (!obeys) {
            QTest::qWait(100);
            EXPECT_NE(form->Window(), nullptr);
            gate->open = true;
        }
        Expect_Ended();
        EXPECT_EQ(form->results.size(), obeys ? 0U : 1U) << "what was done all the same is told";
    }
}

TEST_F(Background_Work, A_Failure_Comes_Out_In_The_Guard) {
    form->Work(
        [](Progress&) -> int { throw Store_Error("x.dat", Store_Error::Reason::Disk_Full, "書き込み"); });
    Expect_Ended();
    EXPECT_PRED2(Has, shell.failure, "x.dat");
    form->Work([](Progress&) -> int { throw Run_Time_Error(Run_Time_Error::Kind::Overflow, "合計"); });
    Expect_Ended();
    EXPECT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(form->results.empty());
}

TEST_F(Background_Work, The_Form_May_Go_First) {
    for (const auto& [can_be_left, seen] :
         {std::pair{true, false}, {true, true}, {false, false}, {false, true}}) {
        SCOPED_TRACE(testing::Message() << can_be_left << seen);
        gate = std::make_shared<Gate_Of_Job>();
        gate->obeys = true;
        Start(can_be_left);
        if (seen) {
            Expect_Seen();
        }
        ASSERT_TRUE(QTest::qWaitFor([this] { return gate->entered.load(); }));
        form = std::make_unique<Working_Form>(shell);
        form->show();
        EXPECT_TRUE(can_be_left || gate->left) << "what changes something is not left behind";
        ASSERT_TRUE(QTest::qWaitFor([this] { return gate->left.load(); })) << "it was asked to stop";
        EXPECT_TRUE(form->results.empty());
    }
}

TEST_F(Background_Work, A_Hidden_Form_Is_Told_Nothing) {
    Start();
    form->hide();
    gate->open = true;
    QTest::qWait(150);
    EXPECT_TRUE(form->results.empty());
    EXPECT_EQ(form->Window(), nullptr);
}

} // namespace
} // namespace morvane::tests
