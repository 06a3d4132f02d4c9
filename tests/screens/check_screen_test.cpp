// SPDX-FileCopyrightText: The Morvane developers
#include "screens/check_screen.h"

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
        Take_Aoba();
        entry.show();
    }

    /// Stores the settled scores of a law year, as the entry screens leave them.
    Review_Figures Settle_In_Store(int law) {
        Put_Elements({{210, law}});
        session.Simyu_Kubun = Law_Of(law).code;
        Settle_Again(session);
        Review_Figures figures = Load_Review(session, Side_In_Hand(session));
        scores = Settle(figures);
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
    const QScrollBar& bar = *form.findChildren<QScrollArea*>().last()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), bar.pageStep());
    using enum Qt::Key;
    const std::pair<Qt::Key, int> steps[] = {{Key_Down, bar.singleStep()},
                                             {Key_Up, 0},
                                             {Key_PageDown, bar.pageStep()},
                                             {Key_End, bar.maximum()},
                                             {Key_Home, 0}};
    for (const auto& [key, place] : steps) {
        QTest::keyClick(Child<QPushButton>(form, "Tojiru"), key);
        EXPECT_EQ(bar.value(), place) << key;
    }
}

TEST_F(Check_Screens, Each_Law_Year_Has_Its_Screen_With_The_Score) {
    const char* w1 = "Frm_W1_Calc_Check";
    const std::vector<const char*> of_w1 = {w1, w1, "Frm_W1_Calc_Check2012"};
    // code: element of the score, 0: X2
    // since: the law year that first has the score
    // forms: from that law year on, the last one in force
    const std::tuple<int, int, int, std::vector<const char*>> buttons[] = {
        {0, 100, 1, of_w1},
        {1, 110, 1, {w1, "Frm_W2_Calc_Check_2011"}},
        {2, 120, 1, of_w1},
        {3, 130, 1, of_w1},
        {4, 150, 1, of_w1},
        {5, 200, 1, {w1, "Frm_W_Calc_Check_2011"}},
        {6, 140, 1, {"Frm_W2_Calc_Check"}},
        {9, 0, 1, {"Frm_X2_Calc_Check"}},
        {10, 213, 2, {"Frm_W7_Calc_Check_2011"}},
        {11, 216, 2, {"Frm_W8_Calc_Check_2011"}},
        {12, 227, 4, {"Frm_W9_Calc_Check_2015"}},
        {13, 233, 4, {"Frm_W10_Calc_Check_2021"}},
    };
    Put_Elements({{131, 1}, {141, 3}, {151, 200'000}, {152, 300'000}, {230, 2}, {232, 1}});
    for (int law = 1; law <= 4; ++law) {
        const Review_Figures settled = Settle_In_Store(law);
        for (const auto& [index, code, since, forms] : buttons) {
            if (law < since) {
                EXPECT_THROW(W2X_Request(Law_Of(law), index), std::out_of_range);
                continue;
            }
            const Check_Request request = W2X_Request(Law_Of(law), index);
            const auto form = std::min(static_cast<std::size_t>(law - since), forms.size() - 1);
            EXPECT_EQ(request.form, forms[form]) << law << " " << index;
            const std::int32_t score = code == 0 ? scores.x2.score.Count() : settled.Yoso(code);
            const char* result = code == 233 ? "W10Ten" : "lbl_Kekka";
            EXPECT_EQ(Shown(Open(request), result), Comma_Str(score)) << law << " " << index;
        }
        const Work_Line& line = settled.works[0];
        const std::pair<const char*, Figure> works[] = {
            {"X", line.X1}, {"P", line.P}, {"Z", line.Z}, {"Z1", line.Zi}, {"Z2", line.Zro}};
        for (const auto& [mode, score] : works) {
            EXPECT_EQ(Shown(Open(XZP_Request(mode, 0)), "lbl_Kekka"), Comma_Str(score.value)) << law << mode;
        }
    }
    EXPECT_EQ(Titles(), "");
}

TEST_F(Check_Screens, Texts_That_Follow_The_Figures) {
    // In the place of the workers left out stands the number of all workers.
    Put_Elements({{228, 300}, {229, 20}, {230, 3}, {231, 16}, {232, 1}, {131, 2}, {1, 2}});
    Settle_In_Store(4);
    EXPECT_EQ(Shown(Open(Y1_Request(6)), "要素２１"), "受入金（当期）");
    EXPECT_THROW(Y1_Request(10), std::out_of_range);
    Form& w10 = Open(W2X_Request(Law_Of(4), 13));
    std::string shown;
    for (const char* name :
         {"Cpd", "LblCpd", "GJSu", "LblGJSu(2)", "Kojyo", "LblKojyo", "Gino", "LblGino(3)"}) {
        shown += Shown(w10, name) + " ";
    }
    EXPECT_EQ(shown + Shown(w10, "KojyoSu"), "300 300 20 20 3 3 16 16 16");
    EXPECT_EQ(Shown(Open(W2X_Request(Law_Of(4), 7)), "lbl_San"),
              "自己資本額 ＝（自己資本額（前期）＋ 自己資本額（当期））／ 2");
    EXPECT_EQ(Shown(Open(XZP_Request("Z1", 0)), "lbl_San")
                  .substr(std::string("技術職員数値 ＝ 監理 × 6 ＋ １級 × 5 ＋ 管理補佐 × 4 ＋ 基幹 × 3 ＋ "
                                      "２級 × 2 ＋ その他 × 1\n")
                              .size()),
              "2,335");
    // A change of the machines that the total does not have yet.
    for (const bool late : {false, true}) {
        QString texts;
        for (const QLabel* label : Open(W2X_Request(Law_Of(4), 5)).findChildren<QLabel*>()) {
            texts += label->text();
        }
        EXPECT_EQ(texts.contains(QStringLiteral("開き直したとき")), late);
        Put_Elements({{213, 0}});
    }
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
    EXPECT_EQ(Titles(), "確認メッセージ") << "the answer of the network comes later";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Has(Last_Box(), "：ネット接続ができません。"); }));
}

TEST_F(Check_Screens, Tables) {
    Put_Elements({{201, 2}});
    const Review_Figures settled = Settle_In_Store(4);
    // top: lbl_Gak(1)
    const std::tuple<Check_Request, int, const char*, const char*, int> cases[] = {
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
    for (const auto& [request, rows, title, top, row_in_force] : cases) {
        SCOPED_TRACE(title);
        Form& check = Open(request);
        messages.shown.clear();
        Click(check, "Cmd_Tbl");
        EXPECT_EQ(Last_Box(), "：0");
        auto* table = Child<Form>(check, "Frm_Calc_Tbl");
        EXPECT_EQ(table->windowTitle().toStdString(), title);
        EXPECT_EQ(Shown(*table, "lbl_Gak(1)"), top);
        EXPECT_EQ(table->findChild<QLabel*>(QStringLiteral("lbl_HyouTen(%1)").arg(rows)), nullptr);
        QString limit; // of the row above; the last row has none below it
        for (int row = 0; row < rows; ++row) {
            const auto label = [&](const std::string& name, int index) {
                return Child<QLabel>(*table, (name + "(" + std::to_string(index) + ")").c_str());
            };
            const QColor ground = label("lbl_HyouTen", row)->palette().color(QPalette::Window);
            EXPECT_EQ(ground == QColor(0xFF, 0xC0, 0xC0), row == row_in_force) << row;
            EXPECT_EQ(label("lbl_Gak", 2 * row)->text(),
                      limit.replace(QStringLiteral("以上"), QStringLiteral("未満")));
            limit = label("lbl_Gak", 2 * row + 1)->text();
        }
        EXPECT_EQ(limit, QString());
        // While the table is open the check screen stays.
        check.reject();
        EXPECT_TRUE(check.isVisible());
        EXPECT_EQ(Last_Box(), "クローズエラー：開いている別表の画面を閉じてから画面を閉じてください。");
        Click(*table, "Tojiru");
        Click(check, "Tojiru");
        EXPECT_FALSE(check.isVisible());
    }
    Form& w5 = Open(W2X_Request(Law_Of(4), 6));
    messages.shown.clear();
    Click(w5, "Cmd_Tbl");
    EXPECT_NE(w5.findChild<Form*>(QStringLiteral("Frm_W2_Calc_Table")), nullptr);
    EXPECT_EQ(Titles(), "");
}

TEST_F(Check_Screens, One_At_A_Time) {
    Settle_In_Store(4);
    int stored = 0;
    const auto open_check = [&] {
        entry.checks.Open(W2X_Request(Law_Of(4), 1), Side_In_Hand(session), [&] { return ++stored != 2; });
        return !entry.checks.Calc_Open_Flg();
    };
    EXPECT_TRUE(open_check());
    EXPECT_TRUE(open_check());
    entry.reject();
    EXPECT_TRUE(entry.isVisible());
    EXPECT_EQ(stored, 1) << "a refusal stores nothing";
    EXPECT_EQ(messages.shown.at(0).text, "開いている計算チェックの画面を閉じてから別画面を開いてください。");
    EXPECT_EQ(Last_Box(), "クローズエラー：開いている計算チェックの画面を閉じてから画面を閉じてください。");
    EXPECT_EQ(Titles(), "オープンエラー クローズエラー");
    QTest::keyClick(entry.findChild<Form*>(), Qt::Key_Escape);
    EXPECT_TRUE(entry.checks.Calc_Open_Flg());
    EXPECT_FALSE(open_check()) << "what could not be stored is not explained";
    EXPECT_TRUE(open_check());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    entry.findChild<Form*>()->close();
    entry.reject();
    EXPECT_FALSE(entry.isVisible());
}

} // namespace
} // namespace morvane::tests
