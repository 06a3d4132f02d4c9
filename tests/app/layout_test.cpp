// SPDX-FileCopyrightText: The Morvane developers
#include "app/form_table.h"
#include "app/shell.h"
#include "batch/case_file.h"
#include "company/datacheck.h"
#include "company/register.h"
#include "session/install_info.h"
#include "support/ui_fixture.h"
#include "widgets/elided_label.h"
#include "widgets/entry_cell.h"
#include "widgets/figure_label.h"
#include "widgets/message_windows.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTableView>
#include <algorithm>
#include <set>
#include <tuple>

namespace morvane::tests {
namespace {

constexpr int title_bar = 30;
constexpr double least_squeeze = 0.6; ///< of the natural width of a figure that still reads

/// The displays that tests/support/ui_main.cpp gives the platform, by their logical size: 1366x768 at 150,
/// 125 and 100 %, 1920x1080 at 200 and 150 %.
std::vector<QScreen*> Displays() {
    QList<QScreen*> screens = QGuiApplication::screens();
    screens.removeIf([](const QScreen* screen) { return screen->name() == QStringLiteral("first"); });
    std::sort(screens.begin(), screens.end(), [](const QScreen* a, const QScreen* b) {
        return a->geometry().width() < b->geometry().width();
    });
    return {screens.begin(), screens.end()};
}

int Width_Of(const QWidget& widget, const QString& text) {
    int width = 0;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        width = std::max(width, widget.fontMetrics().horizontalAdvance(line));
    }
    return width;
}

/// Whether a widget stands in a scroll area, itself not counted.
bool Is_Scrolled(const QWidget& widget) {
    const QWidget* at = widget.parentWidget();
    while (at != nullptr && !at->isWindow() && qobject_cast<const QScrollArea*>(at) == nullptr) {
        at = at->parentWidget();
    }
    return at != nullptr && !at->isWindow();
}

std::string Place_Of(const QWidget& widget) {
    std::string place;
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        if (!at->objectName().isEmpty() && !at->objectName().startsWith(QStringLiteral("qt_"))) {
            place = at->objectName().toStdString() + (place.empty() ? "" : "/") + place;
        }
    }
    return place + " ";
}

void Look_At_Button(const QPushButton& button, const QWidget& window) {
    const std::string what = Place_Of(button) + button.text().toStdString();
    if (!Is_Scrolled(button)) {
        const QRect there(button.mapTo(&window, QPoint(0, 0)), button.size());
        EXPECT_TRUE(window.rect().contains(there)) << what << " is outside";
        EXPECT_EQ(button.visibleRegion().boundingRect(), button.rect()) << what << " is covered";
    }
    if (qobject_cast<const Menu_Button*>(&button) == nullptr) {
        EXPECT_GE(button.width(), button.sizeHint().width()) << what << " is cut";
    }
}

void Look_At_Label(const QLabel& label) {
    const std::string what = Place_Of(label) + label.text().toStdString() + " is cut";
    if (const auto* elided = qobject_cast<const Elided_Label*>(&label)) {
        // The menu has the firm's name in short; what a screen says is whole.
        EXPECT_TRUE(elided->Is_Whole() || Form::Of(label.parentWidget()) == nullptr) << what;
    } else if (label.wordWrap()) {
        EXPECT_LE(label.heightForWidth(label.width()), label.height() + 1) << what;
    } else {
        EXPECT_LE(Width_Of(label, label.text()), label.contentsRect().width()) << what;
        EXPECT_LE(label.fontMetrics().height() * (label.text().count(QLatin1Char('\n')) + 1),
                  label.height() + 4)
            << what;
    }
}

void Look_At_Table(const QTableView& table) {
    constexpr int row_height = 24;
    for (int row = 0; row < std::min(table.model()->rowCount(), 60); ++row) {
        for (int column = 0; column < table.model()->columnCount(); ++column) {
            const QModelIndex at = table.model()->index(row, column);
            const QString text = at.data().toString();
            const std::string what = Place_Of(table) + text.toStdString();
            if ((at.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0) {
                EXPECT_LE(Width_Of(table, text) * least_squeeze, table.columnWidth(column) - 6) << what;
            } else if (text == QStringLiteral("処理中")) {
                EXPECT_LE(Width_Of(table, text), table.columnWidth(column) - 16) << what;
            }
        }
    }
    EXPECT_GE(table.viewport()->height(), row_height) << Place_Of(table) << "shows no row";
}

/// Looks at everything that a window shows.
void Look_Over(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        // A window over this one is looked at by itself.
        if (!widget->isVisibleTo(&window) || widget->window() != window.window()) {
            continue;
        }
        if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
            Look_At_Button(*button, window);
        } else if (const auto* figure = qobject_cast<const Figure_Label*>(widget)) {
            EXPECT_LE(Width_Of(*figure, figure->text()) * least_squeeze, figure->contentsRect().width())
                << Place_Of(*widget) << figure->text().toStdString();
        } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            Look_At_Label(*label);
        } else if (const auto* table = qobject_cast<const QTableView*>(widget)) {
            Look_At_Table(*table);
        } else if (const auto* area = qobject_cast<const QScrollArea*>(widget)) {
            EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << Place_Of(*widget) << "scrolls sideways";
            EXPECT_GE(area->viewport()->height(), 60) << Place_Of(*widget) << "shows nothing";
        }
    }
}

class Layout_Test : public Installation {
  protected:
    /// A firm with a long name and figures as wide as they come, its own user's or one of an office with a
    /// long name and with long names in its register.
    void Make_Firm(bool of_office = false) {
        const std::string name = "特定非営利活動法人北海道東部広域建設業振興協同組合連合会青葉建設工業";
        Install("13", of_office);
        session.Kanri_Flg = of_office ? Office_Mode::Multi : Office_Mode::Single;
        Import_Case(session, Samples_Folder() / "aoba_kensetsu.json");
        if (of_office) {
            const Register_Row firm = Read_Register(session).at(0);
            Check_Out(session, firm.number, firm.name);
            for (int number = 999950; number < 1000000; ++number) {
                Put_Register_Row(session, {number, name, "ﾄｸﾃｲﾋｴｲﾘｶﾂﾄﾞｳﾎｳｼﾞﾝﾎｯｶｲﾄﾞｳﾄｳﾌﾞｺｳｲｷｹﾝｾﾂｷﾞｮｳｼﾝｺｳ"});
            }
            Put_Register_Row(session, {firm.number, name, firm.kana});
            Install_Info info = Read_Install_Info(folder.path);
            info.office_name = "北海道東部広域総合行政書士社会保険労務士合同事務所";
            Write_Install_Info(folder.path, info);
        }
        Run({"UPDATE Jigyo_mas SET 事業所名='" + name + "'",
             "UPDATE Ks_Zaihyo SET 金額=-9876543210, 改善後残高=-9876543210",
             "UPDATE Kandaka_Gj SET 完工高前期=1987654, 完工高前々期=1987654, 完工高基準=1987654, "
             "完工高平均=1987654"});
    }

    /// At its first start the frame would be maximized, on the first display. Other windows remember nothing.
    void Remember_Place() const {
        const std::filesystem::path file = folder.path / "windows.ini";
        std::filesystem::remove(file);
        QSettings places(QString::fromStdString(file.string()), QSettings::IniFormat);
        places.setValue("Frm_Main/x", room.x());
        places.setValue("Frm_Main/y", room.y());
        places.setValue("Frm_Main/width", room.width());
        places.setValue("Frm_Main/height", room.height());
    }

    void Start_On(const QScreen& display) {
        room = display.availableGeometry().adjusted(0, title_bar, 0, 0);
        Remember_Place();
        shell = std::make_unique<Shell>(folder.path, messages);
        shell->end_process = [](int) { ADD_FAILURE() << "the process would end"; };
        ASSERT_TRUE(shell->Sub_Main().running);
        shell->Frame()->setGeometry(room);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(shell->Frame()));
        QApplication::processEvents();
    }

    /// A window of its own is on the display with its title bar, and shows everything.
    void Look_At(QWidget& window, const std::string& name) {
        SCOPED_TRACE(name);
        QApplication::processEvents();
        EXPECT_TRUE(room.adjusted(-2, -2, 2, 2).contains(window.geometry()))
            << window.x() << "," << window.y() << " " << window.width() << "x" << window.height();
        Look_Over(window);
    }

    /// Opens a form of the table and looks at it, and at the checks that its buttons open.
    void Look_At_Form(const Form_Row& row) {
        Frm_Main& frame = *shell->Frame();
        messages.shown.clear();
        if (row.modal) {
            With_Dialog([&] { shell->Open_Form(QString::fromUtf8(row.name)); },
                        [&](QDialog& dialog) {
                            Look_At(dialog, row.name);
                            messages.answers = {Answer::Yes};
                            dialog.reject();
                            messages.answers.clear();
                        });
            return;
        }
        shell->Open_Form(QString::fromUtf8(row.name));
        Form* form = frame.area->Top();
        ASSERT_NE(form, nullptr) << row.name;
        Look_At(frame, row.name);
        Look_At_Hints(*form);
        Look_At_Scores(*form);
        if (row.name == std::string_view("Frm_KsZaiUP")) {
            With_Dialog([&] { shell->Open_Form(QStringLiteral("Frm_KeieiKz")); },
                        [&](QDialog& dialog) {
                            Look_At(dialog, "Frm_KeieiKz_over");
                            Look_At_Scores(dialog);
                            dialog.reject();
                        });
        }
        for (QPushButton* check : form->findChildren<QPushButton*>()) {
            if (check->text() == QStringLiteral("計算チェック")) {
                check->click();
                QApplication::processEvents();
                Look_At_Checks(std::string(row.name) + "_" + check->objectName().toStdString());
            }
        }
        frame.area->Close_All();
        EXPECT_EQ(frame.area->Top(), nullptr) << row.name;
        while (Form* left = frame.area->Top()) {
            left->done(0);
        }
    }

    void Look_At_Checks(const std::string& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QDialog*>(window);
            if (dialog != nullptr && dialog->isVisible()) {
                Look_At(*dialog, name);
                dialog->reject();
            }
        }
        QApplication::processEvents();
    }

    /// The scores of the analysis are in view without scrolling.
    static void Look_At_Scores(QWidget& form) {
        for (const char* name : {"Y", "GeY"}) {
            const auto* score = form.findChild<QLabel*>(QString::fromLatin1(name));
            if (score != nullptr && form.objectName().startsWith(QStringLiteral("Frm_Keiei"))) {
                EXPECT_EQ(score->visibleRegion().boundingRect(), score->rect())
                    << form.objectName().toStdString() << " " << name;
            }
        }
    }

    /// Where the panel of the menu stands.
    [[nodiscard]] QRect Place_Of_Panel() const {
        QApplication::processEvents();
        for (const QFrame* panel : shell->Frame()->command->findChildren<QFrame*>()) {
            if (panel->isVisible() && panel->property("look") == QStringLiteral("popout")) {
                return {panel->mapTo(shell->Frame(), QPoint()), panel->size()};
            }
        }
        return {};
    }

    /// The strip has room for the hint on every field.
    static void Look_At_Hints(Form& form) {
        auto* hint = form.findChild<Elided_Label*>(QStringLiteral("Strip_Subject"));
        for (const Entry_Cell* cell : form.findChildren<Entry_Cell*>()) {
            if (hint != nullptr && !cell->accessibleDescription().isEmpty()) {
                hint->setText(cell->accessibleDescription());
                EXPECT_TRUE(hint->Is_Whole()) << hint->text().toStdString();
            }
        }
    }

    /// All forms, beside the panel from which they are opened.
    void Look_At_All() {
        Frm_Main& frame = *shell->Frame();
        Look_At(frame, "Frm_Main");
        Look_At_Form(*Find_Form("Frm_KsSitei")); // from the column itself, which stays beside it
        shell->menu.screen.number = 43;
        const std::set<std::string_view> of_office = {"Frm_JGSitei", "Frm_JgNew"};
        for (const char* opener : {"Cmd_KsZ1", "Cmd_Sim1"}) {
            Click(frame, opener);
            Look_At(frame, opener);
            const QRect panel = Place_Of_Panel();
            const bool statements = std::string_view(opener) == "Cmd_KsZ1";
            for (const Form_Row& row : Form_Table()) {
                const bool of_statements = std::string_view(row.name).starts_with("Frm_Ks");
                if (row.make != nullptr && of_statements == statements &&
                    (session.Is_Multi() || !of_office.contains(row.name))) {
                    Look_At_Form(row);
                    EXPECT_EQ(Place_Of_Panel(), panel) << "after " << row.name;
                }
            }
            frame.command->Close_Panel();
        }
    }

    std::unique_ptr<Shell> shell;
    QRect room; ///< of a window on the display
};

TEST_F(Layout_Test, Every_Form_Has_Its_Place_On_Every_Display) {
    ASSERT_EQ(Displays().size(), 5U);
    Make_Firm(true);
    for (const QScreen* display : Displays()) {
        SCOPED_TRACE(display->name().toStdString());
        Start_On(*display);
        EXPECT_TRUE(Child<QLabel>(*shell->Frame(), "JimusyoMei")->isVisible());
        Look_At_All();
        shell.reset();
    }
}

TEST_F(Layout_Test, Blank_Figures_Change_Nothing) {
    Make_Firm();
    Run({"UPDATE Ks_Zaihyo SET 金額=Null, 改善後残高=Null"});
    Start_On(*Displays().front());
    Look_At_All();
}

// Why nothing can be computed is a sentence that is longer than a small display is wide.
TEST_F(Layout_Test, A_Screen_Tells_Of_Figures_That_Cannot_Be_Computed) {
    Make_Firm();
    // Engineers and skilled workers that cancel each other, as only a damaged store has them.
    Run({"UPDATE W_Yoso SET 現状=5 WHERE 要素CD=229", "UPDATE W_Yoso SET 現状=-5 WHERE 要素CD=231"});
    Start_On(*Displays().front());
    Click(*shell->Frame(), "Cmd_Sim1");
    shell->Open_Form(QStringLiteral("Frm_Kanko"));
    auto* fault = Child<QLabel>(*shell->Frame(), "Lbl_Fault");
    EXPECT_TRUE(fault->text().contains(QStringLiteral("技能者数の合計が０です。")))
        << fault->text().toStdString();
    Look_At(*shell->Frame(), "Frm_Kanko_fault");
    EXPECT_EQ(Child<QScrollArea>(*shell->Frame()->area->Top(), "Body_Scroll")->verticalScrollBar()->maximum(),
              0);
    shell->Frame()->area->Top()->done(0);
}

TEST_F(Layout_Test, Messages_Are_As_Wide_As_Their_Lines) {
    std::string many;
    for (int line = 1; line <= 60; ++line) {
        many += std::to_string(line) + "行目「完成工事高（千円）」：数値ではありません。\n";
    }
    const std::string path =
        "「/" + std::string(200, 'x') + "/data/000012.dat」：ディスクの空き容量が足りません。";
    const std::string lines = "決算期情報が不完全です。\n自社情報の編集画面を開きますので入力して下さい。";
    for (const QScreen* display : Displays()) {
        SCOPED_TRACE(display->name().toStdString());
        room = display->availableGeometry().adjusted(0, title_bar, 0, 0);
        QWidget under;
        under.setGeometry(room);
        under.show();
        for (const std::string& text : {lines, path, many}) {
            under.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&under));
            With_Dialog(
                [&] {
                    Message_Windows().Show({.title = "保存エラー",
                                            .text = text,
                                            .buttons = Buttons::Retry_Discard_Back,
                                            .default_answer = Answer::Back});
                },
                [&](QDialog& dialog) {
                    Look_At(dialog, "Message_" + std::to_string(text.size()));
                    QString shown = Child<QLabel>(dialog, "Message_Text")->text();
                    if (text == path) { // the stated lines of the others stand
                        shown.remove(QLatin1Char('\n'));
                    }
                    EXPECT_EQ(shown.toStdString(), text);
                    dialog.reject();
                });
        }
    }
}

// One Enter must never carry out what a question warns of.
TEST(Message_Windows_Test, Enter_Takes_The_Default_And_Esc_The_Way_Back) {
    const std::tuple<Buttons, Answer, Answer> cases[] = {
        {Buttons::Yes_No, Answer::No, Answer::No},
        {Buttons::Yes_No, Answer::Yes, Answer::No},
        {Buttons::Ok_Cancel, Answer::Cancel, Answer::Cancel},
        {Buttons::Ok_Cancel, Answer::Ok, Answer::Cancel},
        {Buttons::Retry_Discard_Back, Answer::Back, Answer::Back}};
    for (const auto& [buttons, default_answer, back] : cases) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            const Message_Box box = {.title = "編集破棄確認",
                                     .text = "よろしいですか？",
                                     .buttons = buttons,
                                     .default_answer = default_answer};
            Answer answer = Answer::Ok;
            With_Dialog([&] { answer = Message_Windows().Show(box); },
                        [&](QDialog& dialog) {
                            ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
                            ASSERT_NE(dialog.focusWidget(), nullptr);
                            QTest::keyClick(dialog.focusWidget(), key);
                        });
            EXPECT_EQ(answer, key == Qt::Key_Escape ? back : default_answer);
        }
    }
}

} // namespace
} // namespace morvane::tests
