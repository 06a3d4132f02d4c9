// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_screen.h"

#include "batch/case_file.h"
#include "law/ten_tables.h"
#include "review/settle.h"
#include "screens/check_opener.h"
#include "session/install_info.h"
#include "session/kyotu_mod.h"
#include "support/keyboard.h"
#include "widgets/theme.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace morvane::tests {
namespace {

/// An entry screen reduced to what the check screens need of it.
class Entry_Screen : public Form {
  public:
    explicit Entry_Screen(Shell_Port& shell_port)
        : Form(shell_port, QStringLiteral("Entry"), {}), checks(*this, shell_port) {}

    bool May_Close() override { return checks.May_Close(); }

    Check_Opener checks;
};

class Check_Screens : public Ui_Installation {
  protected:
    Check_Screens() : Ui_Installation("13", false), entry(shell) {
        Import_Case(session, Samples_Folder() / "aoba_kensetsu.json");
        session.Syori_Ki = static_cast<std::int16_t>(Field("Jigyo_mas", "処理決算期", "1=1").As_Integer());
        entry.show();
    }

    /// Stores the settled scores of a law year, as the entry screens leave them.
    Review_Figures Settle_In_Store(int law) {
        Put_Elements({{210, law}});
        session.Simyu_Kubun = Law_Of(law).code;
        const Connection cn = Cn_Open(session);
        Review_Figures figures = Load_Review(session, Side_In_Hand(session));
        scores = Settle(figures);
        Transaction transaction(cn);
        Write_Elements(cn, Side_In_Hand(session), figures);
        Write_Works(cn, Side_In_Hand(session), figures);
        transaction.Commit();
        return figures;
    }

    /// Opens a check screen; it is closed with the next one.
    Form& Open(const Check_Request& request) {
        for (Form* form : entry.findChildren<Form*>()) {
            form->reject();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        entry.checks.Open(request, Side_In_Hand(session), [] { return true; });
        return *entry.findChild<Form*>(QString::fromStdString(request.form));
    }

    Statement_Scores scores;
    Entry_Screen entry;
};

TEST_F(Check_Screens, Keys_Scroll_What_Is_Taller_Than_The_Window) {
    Form& form = Open(W2X_Request(Law_Of(4), 5));
    form.resize(form.width(), 240);
    QApplication::processEvents();
    const QWidget* at = Child<QLabel>(form, "lbl_San");
    while (qobject_cast<const QScrollArea*>(at) == nullptr) {
        at = at->parentWidget();
    }
    const QScrollBar& bar = *qobject_cast<const QScrollArea*>(at)->verticalScrollBar();
    ASSERT_GT(bar.maximum(), bar.pageStep());
    const struct {
        Qt::Key key;
        int place;
    } steps[] = {
        {Qt::Key_Down, bar.singleStep()}, {Qt::Key_Up, 0},   {Qt::Key_PageDown, bar.pageStep()},
        {Qt::Key_End, bar.maximum()},     {Qt::Key_Home, 0},
    };
    for (const auto& step : steps) {
        QTest::keyClick(Child<QPushButton>(form, "Tojiru"), step.key);
        EXPECT_EQ(bar.value(), step.place) << step.key;
    }
}

TEST_F(Check_Screens, Each_Law_Year_Has_Its_Screen_With_The_Score) {
    const struct {
        int index;
        int code;                       ///< element of the score, 0: X2
        int since;                      ///< the law year that first has the score
        std::vector<const char*> forms; ///< from that law year on, the last one in force
        const char* result = "lbl_Kekka";
    } buttons[] = {
        {0, 100, 1, {"Frm_W1_Calc_Check", "Frm_W1_Calc_Check", "Frm_W1_Calc_Check2012"}},
        {1, 110, 1, {"Frm_W1_Calc_Check", "Frm_W2_Calc_Check_2011"}},
        {2, 120, 1, {"Frm_W1_Calc_Check", "Frm_W1_Calc_Check", "Frm_W1_Calc_Check2012"}},
        {3, 130, 1, {"Frm_W1_Calc_Check", "Frm_W1_Calc_Check", "Frm_W1_Calc_Check2012"}},
        {4, 150, 1, {"Frm_W1_Calc_Check", "Frm_W1_Calc_Check", "Frm_W1_Calc_Check2012"}},
        {5, 200, 1, {"Frm_W1_Calc_Check", "Frm_W_Calc_Check_2011"}},
        {6, 140, 1, {"Frm_W2_Calc_Check"}},
        {9, 0, 1, {"Frm_X2_Calc_Check"}},
        {10, 213, 2, {"Frm_W7_Calc_Check_2011"}},
        {11, 216, 2, {"Frm_W8_Calc_Check_2011"}},
        {12, 227, 4, {"Frm_W9_Calc_Check_2015"}},
        {13, 233, 4, {"Frm_W10_Calc_Check_2021"}, "W10Ten"},
    };
    Put_Elements({{131, 1}, {141, 3}, {151, 200'000}, {152, 300'000}, {230, 2}, {232, 1}});
    for (int law = 1; law <= 4; ++law) {
        const Review_Figures settled = Settle_In_Store(law);
        for (const auto& button : buttons) {
            if (law < button.since) {
                EXPECT_THROW(W2X_Request(Law_Of(law), button.index), std::out_of_range);
                continue;
            }
            const Check_Request request = W2X_Request(Law_Of(law), button.index);
            const auto form = std::min(static_cast<std::size_t>(law - button.since), button.forms.size() - 1);
            EXPECT_EQ(request.form, button.forms[form]) << law << " " << button.index;
            const std::int32_t score = button.code == 0 ? scores.x2.score.Count() : settled.Yoso(button.code);
            EXPECT_EQ(Shown(Open(request), button.result), Comma_Str(score)) << law << " " << button.index;
        }
        const Work_Line& line = settled.works[0];
        const std::pair<const char*, std::int32_t> of_works[] = {{"X", line.X1.value},
                                                                 {"P", line.P.value},
                                                                 {"Z", line.Z.value},
                                                                 {"Z1", line.Zi.value},
                                                                 {"Z2", line.Zro.value}};
        for (const auto& [mode, score] : of_works) {
            EXPECT_EQ(Shown(Open(XZP_Request(mode, 0)), "lbl_Kekka"), Comma_Str(score)) << law << " " << mode;
        }
    }
    EXPECT_EQ(messages.shown.size(), 0U);
}

TEST_F(Check_Screens, Indicators_Of_Y) {
    const Review_Figures settled = Settle_In_Store(4);
    for (int i = 0; i < 10; ++i) {
        const double score = i < 8    ? static_cast<double>(scores.y.indicators[static_cast<std::size_t>(i)])
                             : i == 8 ? static_cast<double>(scores.y.points)
                                      : scores.y.score.Count();
        const QString shown = Child<QLabel>(Open(Y1_Request(i)), "lbl_Kekka")->text().remove(',');
        EXPECT_NEAR(shown.toDouble(), score, 0.0005) << i;
        EXPECT_EQ(shown.section('.', 1).size(), i < 8 ? 3 : i == 8 ? 2 : 0) << i;
    }
    Form& cash_flow = Open(Y1_Request(6));
    EXPECT_EQ(Shown(cash_flow, "要素２１"), "受入金（当期）");
    EXPECT_EQ(Shown(cash_flow, "要素値２"),
              Comma_Str(settled.statement.Get_Y_Kamoku(Account::Ordinary_Profit)));
    EXPECT_THROW(Y1_Request(10), std::out_of_range);
}

TEST_F(Check_Screens, Texts_That_Follow_The_Figures) {
    // In the place of the workers left out stands the number of all workers.
    Put_Elements({{228, 300}, {229, 20}, {230, 3}, {231, 16}, {232, 1}, {131, 2}, {1, 2}});
    Settle_In_Store(4);
    Form& w10 = Open(W2X_Request(Law_Of(4), 13));
    const std::pair<const char*, const char*> shown[] = {
        {"Cpd", "300"},    {"LblCpd", "300"}, {"GJSu", "20"},       {"LblGJSu(2)", "20"}, {"Kojyo", "3"},
        {"LblKojyo", "3"}, {"Gino", "16"},    {"LblGino(3)", "16"}, {"KojyoSu", "16"}};
    for (const auto& [name, text] : shown) {
        EXPECT_EQ(Shown(w10, name), text) << name;
    }
    EXPECT_EQ(Shown(Open(W2X_Request(Law_Of(4), 7)), "lbl_San"),
              "自己資本額 ＝（自己資本額（前期）＋ 自己資本額（当期））／ 2");
    EXPECT_EQ(Shown(Open(XZP_Request("Z1", 0)), "lbl_San")
                  .substr(std::string("技術職員数値 ＝ 監理 × 6 ＋ １級 × 5 ＋ 管理補佐 × 4 ＋ 基幹 × 3 ＋ "
                                      "２級 × 2 ＋ その他 × 1\n")
                              .size()),
              "2,335");
    // A change of the machines that the total does not have yet.
    const auto late = [this] {
        for (const QLabel* label : Open(W2X_Request(Law_Of(4), 5)).findChildren<QLabel*>()) {
            if (label->text().contains(QStringLiteral("開き直したとき"))) {
                return true;
            }
        }
        return false;
    };
    EXPECT_FALSE(late());
    Put_Elements({{213, 0}});
    EXPECT_TRUE(late());
}

TEST_F(Check_Screens, Steps_Stand_In_The_Window_As_In_The_Sheet) {
    Put_Elements({{228, 620}, {229, 20}, {230, 3}, {231, 16}, {232, 1}});
    Settle_In_Store(4);
    for (const Check_Request& request : {Y1_Request(6), W2X_Request(Law_Of(4), 13), XZP_Request("X", 0)}) {
        const Check_Sheet sheet = Make_Check_Sheet(session, Side_In_Hand(session), request);
        ASSERT_FALSE(sheet.steps.empty());
        Form& form = Open(request);
        QString shown;
        for (const QLabel* label : form.findChildren<QLabel*>()) {
            if (label->objectName().startsWith(QStringLiteral("過程"))) {
                shown += label->text();
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << "a broken line is cut";
            }
        }
        std::string told;
        for (const Check_Step& step : sheet.steps) {
            told += step.text;
        }
        EXPECT_EQ(shown.toStdString(), told);
    }
    EXPECT_EQ(Shown(Open(W2X_Request(Law_Of(4), 13)), "過程１"), "620 ／ 20 ＞ 30 のため 0");
}

TEST_F(Check_Screens, The_Network_Is_Asked_Beside_The_Window) {
    Install_Info info = Read_Install_Info(session.App_Path);
    info.network.help_host = "help.example.jp";
    info.net_check_host = "127.0.0.1:1";
    Write_Install_Info(session.App_Path, info);
    Form& check = Open(W2X_Request(Law_Of(4), 9));
    messages.shown.clear();
    messages.answers = {Answer::Ok};
    Click(check, "Cmd_Kaisetu");
    EXPECT_EQ(messages.shown.size(), 1U) << "the answer of the network comes later";
    ASSERT_TRUE(QTest::qWaitFor([&] { return messages.shown.size() == 2; }));
    EXPECT_TRUE(messages.shown[1].text.starts_with("ネット接続ができません。"));
}

TEST_F(Check_Screens, Tables) {
    Put_Elements({{201, 2}});
    const Review_Figures settled = Settle_In_Store(4);
    const struct {
        Check_Request request;
        int rows;
        const char* title;
        const char* top; ///< lbl_Gak(1)
        int row_in_force;
    } cases[] = {
        {XZP_Request("X", 0), 42, "年間平均完成工事高 別表", "1,000億円以上",
         Ten_Lookup(Ten_X1_B, settled.works[0].Nheikin.value).row},
        {W2X_Request(Law_Of(4), 7), 47, "自己資本額 別表", "3,000億円以上",
         Ten_Lookup(Ten_X2_1, scores.x2.equity.counted.Count()).row},
        {W2X_Request(Law_Of(4), 8), 37, "平均利益額 別表", "300億円以上",
         Ten_Lookup(Ten_X2_2, scores.x2.profit.counted.Count()).row},
        {XZP_Request("Z2", 0), 42, "年間平均元請完成工事高 別表", "1,000億円以上",
         Ten_Lookup(Ten_Z2_B, settled.works[0].Mnheikin.value).row},
        {XZP_Request("Z1", 0), 30, "技術職員数値 別表", "15,500以上", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.title);
        Form& check = Open(c.request);
        messages.shown.clear();
        Click(check, "Cmd_Tbl");
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].title + "|" + messages.shown[0].text, "|0");
        auto* table = Child<Form>(check, "Frm_Calc_Tbl");
        EXPECT_EQ(table->windowTitle().toStdString(), c.title);
        EXPECT_EQ(Shown(*table, "lbl_Gak(0)"), "");
        EXPECT_EQ(Shown(*table, "lbl_Gak(1)"), c.top);
        EXPECT_EQ(Shown(*table, ("lbl_Gak(" + std::to_string(2 * c.rows - 1) + ")").c_str()), "");
        EXPECT_EQ(
            Shown(*table, "lbl_Gak(2)"),
            QString::fromUtf8(c.top).replace(QStringLiteral("以上"), QStringLiteral("未満")).toStdString());
        EXPECT_EQ(table->findChild<QLabel*>(QStringLiteral("lbl_HyouTen(%1)").arg(c.rows)), nullptr);
        for (int row = 0; row < c.rows; ++row) {
            const QString name = QStringLiteral("lbl_HyouTen(%1)").arg(row);
            const QColor ground = table->findChild<QLabel*>(name)->palette().color(QPalette::Window);
            EXPECT_EQ(ground == QColor(0xFF, 0xC0, 0xC0), row == c.row_in_force) << row;
        }
        // While the table is open the check screen stays.
        check.reject();
        EXPECT_TRUE(check.isVisible());
        ASSERT_EQ(messages.shown.size(), 2U);
        EXPECT_EQ(messages.shown[1].title, "クローズエラー");
        EXPECT_EQ(messages.shown[1].text, "開いている別表の画面を閉じてから画面を閉じてください。");
        Click(*table, "Tojiru");
        Click(check, "Tojiru");
        EXPECT_FALSE(check.isVisible());
    }
    Form& w5 = Open(W2X_Request(Law_Of(4), 6));
    messages.shown.clear();
    Click(w5, "Cmd_Tbl");
    EXPECT_NE(w5.findChild<Form*>(QStringLiteral("Frm_W2_Calc_Table")), nullptr);
    w5.findChild<Form*>()->reject();
    EXPECT_EQ(messages.shown.size(), 0U);
}

TEST_F(Check_Screens, One_At_A_Time) {
    Settle_In_Store(4);
    int stored = 0;
    const auto store = [&stored] { return ++stored != 2; };
    entry.checks.Open(W2X_Request(Law_Of(4), 0), Side_In_Hand(session), store);
    EXPECT_FALSE(entry.checks.Calc_Open_Flg());
    entry.checks.Open(W2X_Request(Law_Of(4), 1), Side_In_Hand(session), store);
    entry.reject();
    EXPECT_TRUE(entry.isVisible());
    EXPECT_EQ(stored, 1) << "a refusal stores nothing";
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].title, "オープンエラー");
    EXPECT_EQ(messages.shown[0].text, "開いている計算チェックの画面を閉じてから別画面を開いてください。");
    EXPECT_EQ(messages.shown[1].title, "クローズエラー");
    EXPECT_EQ(messages.shown[1].text, "開いている計算チェックの画面を閉じてから画面を閉じてください。");
    QTest::keyClick(entry.findChild<Form*>(), Qt::Key_Escape);
    EXPECT_TRUE(entry.checks.Calc_Open_Flg());
    entry.checks.Open(W2X_Request(Law_Of(4), 1), Side_In_Hand(session), store);
    EXPECT_TRUE(entry.checks.Calc_Open_Flg()) << "what could not be stored is not explained";
    entry.checks.Open(W2X_Request(Law_Of(4), 1), Side_In_Hand(session), store);
    EXPECT_FALSE(entry.checks.Calc_Open_Flg());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    entry.findChild<Form*>()->close();
    entry.reject();
    EXPECT_FALSE(entry.isVisible());
}

} // namespace
} // namespace morvane::tests
