// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_window.h"

#include "app/form_table.h"
#include "batch/case_file.h"
#include "batch/company_run.h"
#include "batch/report_run.h"
#include "company/datacheck.h"
#include "data/store_file.h"
#include "report/painter_target.h"
#include "support/sheet_texts.h"
#include "support/ui_fixture.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QSignalSpy>
#include <QWheelEvent>
#include <cups/cups.h>
#include <sstream>
#include <unistd.h>

namespace morvane::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char* nowhere = "localhost:1"; // no printing system listens there

class Report_Window_Test : public Ui_Installation {
  protected:
    Report_Window_Test() {
        // Never a sheet of paper out of the printer of the machine that tests.
        cupsSetServer(nowhere);
        Import_Case(session, Samples_Folder() / "sakura_setsubi.json");
        session.Work_Store = Company_Store(session, 5);
        session.Kanri_No = 5;
        session.Jigyo_Name = "さくら見本設備株式会社";
        session.Syori_Ki = 28;
        session.Simyu_Kubun = Law_Of(4).code;
        Open();
    }

    void Open(const char* name = "Rpt_Kekka_2012") {
        window.reset(static_cast<Report_Window*>(Make_Report(shell, name)));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// Opens the page settings and does what a user does there.
    void Set_Page(const std::function<void(QDialog&)>& act) {
        With_Dialog([this] { Click(*window, "Pg_Set"); }, act);
    }

    /// Clicks a button and gives the boxes that it showed, title and text.
    std::string Said_By(const char* button, const std::vector<Answer>& answers = {}) {
        messages.shown.clear();
        messages.answers = answers;
        Click(*window, button);
        std::string said;
        for (const Message_Box& box : messages.shown) {
            said += box.title + "：" + box.text;
        }
        return said;
    }

    [[nodiscard]] std::string Status() const {
        return Child<QLabel>(*window, "Lbl_Status")->text().toStdString();
    }

    std::unique_ptr<Report_Window> window;
};

TEST_F(Report_Window_Test, Every_Report_Opens_By_Its_Name) {
    for (const Report_Row& report : Report_Table()) {
        const Form_Row* row = Find_Form(report.name);
        ASSERT_NE(row, nullptr) << report.name;
        EXPECT_TRUE(row->modal) << report.name;
        const std::unique_ptr<Form> form(row->Make(shell));
        EXPECT_EQ(form->objectName(), QString::fromUtf8(report.name));
    }
    for (const Law_Year& law : Law_Years()) {
        EXPECT_NE(Find_Report(law.result_report), nullptr) << law.name;
    }
}

TEST_F(Report_Window_Test, Scale_Goes_In_Steps_And_Beeps_At_Its_Ends) {
    auto* sheet = Child<QWidget>(*window, "Yousi");
    const QSize whole = sheet->size();
    EXPECT_PRED2(Has, Joined(Texts_Of(window->Preview())), "経営事項審査 シミュレーション結果（改善前）");
    QSignalSpy beeps(window.get(), &Report_Window::Refused);
    for (const float scale : {1.25F, 1.5F}) {
        Click(*window, "Kakudai");
        EXPECT_EQ(window->Prt().Prt_Scale, scale);
        EXPECT_NEAR(sheet->width(), whole.width() * static_cast<double>(scale), 2);
    }
    Click(*window, "Kakudai");
    EXPECT_EQ(window->Prt().Prt_Scale, 1.5F);
    EXPECT_EQ(beeps.count(), 1);
    for (int i = 0; i < 6; ++i) {
        Click(*window, "SyukuSyo");
    }
    EXPECT_EQ(window->Prt().Prt_Scale, 0.25F);
    EXPECT_EQ(beeps.count(), 2);
    EXPECT_EQ(Child<QLabel>(*window, "Lbl_Scale")->text(), QStringLiteral("25%"));
    const QPoint middle = sheet->rect().center();
    QWheelEvent wheel(middle, sheet->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(sheet->parentWidget(), &wheel);
    EXPECT_EQ(window->Prt().Prt_Scale, 0.5F);
}

TEST_F(Report_Window_Test, The_Sheet_Is_Dragged_And_Turned_By_Keys) {
    auto* sheet = Child<QWidget>(*window, "Yousi");
    auto* view = Child<QWidget>(*window, "Sheet_View");
    const QPoint before = sheet->pos();
    QTest::mousePress(sheet, Qt::LeftButton, {}, {200, 200});
    QTest::mouseMove(sheet, {170, 120});
    EXPECT_EQ(sheet->pos(), before + QPoint(-30, -80));
    QTest::mouseRelease(sheet, Qt::LeftButton, {}, {200, 190});
    EXPECT_EQ(sheet->pos(), before + QPoint(-30, -90));
    QTest::mouseMove(sheet, {10, 10});
    EXPECT_EQ(sheet->pos(), before + QPoint(-30, -90)) << "the button is up";
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_EQ(sheet->y(), before.y());
    QTest::keyClick(view, Qt::Key_PageDown);
    EXPECT_LT(sheet->y(), before.y() - 100);
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_LE(sheet->geometry().bottom(), sheet->parentWidget()->height());
}

TEST_F(Report_Window_Test, Margins_Are_Kept_For_The_Report_Number) {
    Set_Page([](QDialog& dialog) {
        Type_Into(dialog, "Ue_Mrg", "1.2.3");
        Click(dialog, "Cmd_OK");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(Child<QLineEdit>(dialog, "Ue_Mrg")->text(), QStringLiteral("0"));
        Type_Into(dialog, "Busu", "0");
        Click(dialog, "Cmd_OK");
        Type_Into(dialog, "Ue_Mrg", "-7a.5");
        Type_Into(dialog, "Hida_Mrg", "3");
        Type_Into(dialog, "Busu", "2");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("St_Page"), nullptr);
        Click(dialog, "Cmd_OK");
    });
    EXPECT_EQ(Titles(), "実行時エラー 実行時エラー");
    EXPECT_EQ(messages.shown.at(0).text,
              "上余白「1.2.3」は数値ではありません。\n数字と小数点で入力してください。");
    EXPECT_EQ(messages.shown.at(1).text, "印刷部数は1～255で入力してください。");
    EXPECT_EQ(window->Prt().Prt_Top, 7.5F);
    EXPECT_EQ(window->Prt().Prt_Left, 3.0F);
    EXPECT_EQ(window->Prt().Prt_Busu, 2);
    Set_Page([](QDialog& dialog) {
        Type_Into(dialog, "Ue_Mrg", "99");
        Click(dialog, "Cmd_Can");
    });
    EXPECT_EQ(window->Prt().Ue_Mrg_Val, 7.5F);
    Click(*window, "Tojiru");
    EXPECT_FALSE(window->isVisible());

    // The batch tool prints on the same place of the sheet.
    const Temporary_Folder printed;
    const auto first_text = [&](const char* name) {
        QProcess reader;
        reader.start("pdftotext", {"-bbox", QString::fromStdString(printed.path / name), "-"});
        EXPECT_TRUE(reader.waitForFinished());
        const QString page = QString::fromUtf8(reader.readAllStandardOutput());
        const qsizetype word = page.indexOf("<word");
        EXPECT_GE(word, 0);
        return page.mid(word, page.indexOf('>', word) - word);
    };
    const auto print = [&](const char* name) {
        Report_Options options;
        options.companies = Chosen_Companies(session, {});
        options.output = printed.path / name;
        std::ostringstream errors;
        EXPECT_EQ(Report_Run(session, options, errors), 0U) << errors.str();
        return first_text(name);
    };
    const QString with_margins = print("batch.pdf");
    Open();
    window->choose_pdf_file = [&](const QString&) {
        return QString::fromStdString(printed.path / "window.pdf");
    };
    Click(*window, "Pdf_Save");
    EXPECT_EQ(with_margins, first_text("window.pdf"));
    Save_Report_Info(session, *Find_Report("Rpt_Kekka_2012"), {});
    EXPECT_NE(with_margins, print("no_margin.pdf"));
}

// What would leave the sheet is asked about before it is set, and told above the sheet while it is set.
TEST_F(Report_Window_Test, Margins_That_Cut_The_Report_Are_Asked_About) {
    auto* notice = Child<QLabel>(*window, "Lbl_Notice");
    EXPECT_TRUE(notice->isHidden());
    const auto set = [&](const char* left, const std::vector<Answer>& answers) {
        messages.answers = answers;
        Set_Page([&](QDialog& dialog) {
            Type_Into(dialog, "Hida_Mrg", left);
            Click(dialog, "Cmd_OK");
            if (dialog.isVisible()) {
                Click(dialog, "Cmd_Can");
            }
        });
    };
    set("11.5", {});
    EXPECT_EQ(Titles(), "");
    set("12.5", {Answer::No});
    EXPECT_EQ(Titles(), "ページ設定");
    EXPECT_PRED2(Has, Last_Box(), "左余白は");
    EXPECT_EQ(window->Prt().Prt_Left, 11.5F);
    EXPECT_TRUE(notice->isHidden());
    set("12.5", {Answer::Yes});
    EXPECT_EQ(window->Prt().Prt_Left, 12.5F);
    EXPECT_FALSE(notice->isHidden());
}

constexpr const char* printer_error =
    "Sorvek：ﾌﾟﾘﾝﾀｴﾗｰです。\n接続状態（電源、用紙ｻｲｽﾞ等）を確認してください。";

TEST_F(Report_Window_Test, A_Printer_That_Fails_Leaves_The_Preview) {
    fs::create_directory(folder.path / "pdf");
    const fs::path file = folder.path / "pdf" / "printed.pdf";
    const std::tuple<void (QPrinter::*)(const QString&), std::string, const char*> rows[] = {
        {&QPrinter::setPrinterName, "", printer_error},
        {&QPrinter::setPrinterName, "nai", printer_error},
        {&QPrinter::setOutputFileName, "/nai/printed.pdf", printer_error},
        {&QPrinter::setOutputFileName, file, ""},
    };
    Click(*window, "SyukuSyo");
    for (const auto& [choose, name, said] : rows) {
        SCOPED_TRACE(name);
        (window->Printer().*choose)(QString::fromStdString(name));
        EXPECT_EQ(Said_By("Prt_Exe"), said);
        EXPECT_EQ(window->Prt().Prt_Scale, 0.75F);
        EXPECT_FALSE(window->Prt().Prt_Doing);
        EXPECT_TRUE(window->isVisible());
    }
    EXPECT_NE(Read_Text_File(file).find("/Lang (ja-JP)"), std::string::npos) << "written as every PDF is";
}

// A printing system of its own, whose queues print into nothing.
class Printing_System {
  public:
    explicit Printing_System(const fs::path& place) : folder(place) {
        for (const char* name : {"spool", "cache", "state"}) {
            fs::create_directories(folder / name);
        }
        const bool root = ::geteuid() == 0; // then the daemon wants a user without rights
        Write_Text_File(folder / "cupsd.conf", "Listen " + Socket() +
                                                   "\nBrowsing Off\nDefaultAuthType None\n"
                                                   "<Location />\nAllow all\n</Location>\n"
                                                   "<Policy default>\n<Limit All>\nOrder deny,allow\n"
                                                   "</Limit>\n</Policy>\n");
        const std::string at = folder.string();
        Write_Text_File(folder / "cups-files.conf",
                        "ServerRoot " + at + "\nCacheDir " + at + "/cache\nStateDir " + at +
                            "/state\nRequestRoot " + at + "/spool\nTempDir " + at +
                            "/spool\nFileDevice Yes\nErrorLog stderr\nAccessLog stderr\nPageLog stderr\n" +
                            (root ? "User lp\nGroup lp\n" : ""));
        Write_Text_File(folder / "printers.conf", Queue("Ready", "Idle", "Yes") +
                                                      Queue("Stopped", "Stopped", "Yes") +
                                                      Queue("Rejects", "Idle", "No"));
        daemon.setStandardErrorFile(QProcess::nullDevice());
        daemon.start("/usr/sbin/cupsd", {"-f", "-c", Path("cupsd.conf"), "-s", Path("cups-files.conf")});
        daemon.waitForStarted();
        for (int i = 0; i < 100 && !fs::exists(Socket()); ++i) {
            QTest::qWait(50);
        }
        cupsSetServer(Socket().c_str());
    }
    ~Printing_System() {
        cupsSetServer(nowhere);
        daemon.terminate();
        daemon.waitForFinished();
    }

    [[nodiscard]] bool Runs() const { return daemon.state() == QProcess::Running && fs::exists(Socket()); }

  private:
    [[nodiscard]] std::string Socket() const { return (folder / "socket").string(); }
    [[nodiscard]] QString Path(const char* name) const { return QString::fromStdString(folder / name); }
    static std::string Queue(const std::string& name, const std::string& state, const std::string& accepts) {
        return "<Printer " + name + ">\nDeviceURI file:///dev/null\nState " + state + "\nAccepting " +
               accepts + "\n</Printer>\n";
    }

    const fs::path folder;
    QProcess daemon;
};

TEST_F(Report_Window_Test, A_Queue_Prints_Or_The_Failure_Is_Told) {
    if (!fs::exists("/usr/sbin/cupsd")) {
        GTEST_SKIP() << "no printing system is installed";
    }
    const Printing_System system(folder.path / "cups");
    if (!system.Runs()) {
        GTEST_SKIP() << "the printing system does not start here";
    }
    for (const char* queue : {"Stopped", "Rejects"}) {
        window->Printer().setPrinterName(QString::fromLatin1(queue));
        EXPECT_EQ(Said_By("Prt_Exe"), printer_error);
        EXPECT_PRED2(Has, Status(), queue);
    }
    window->Printer().setPrinterName(QStringLiteral("Ready"));
    EXPECT_EQ(Said_By("Prt_Exe"), "");
    EXPECT_TRUE(Status().starts_with("プリンタ「Ready」に送りました")) << Status();
    const auto is_printed = [this] { return Status() == "プリンタ「Ready」で印刷しました。"; };
    EXPECT_TRUE(QTest::qWaitFor(is_printed, 10'000)) << Status();
    EXPECT_EQ(Titles(), "");
}

TEST_F(Report_Window_Test, A_Pdf_Is_Saved_Or_The_Failure_Told) {
    const fs::path place = folder.path / "pdf";
    fs::create_directory(place);
    const fs::path file = place / "kekka.pdf";
    std::vector<QString> asked;
    const auto save = [&](const std::vector<std::string>& files, const std::vector<Answer>& answers) {
        asked.clear();
        window->choose_pdf_file = [&](const QString& suggested) {
            asked.push_back(suggested);
            return QString::fromStdString(files.at(asked.size() - 1));
        };
        const std::string said = Said_By("Pdf_Save", answers);
        EXPECT_EQ(asked.size(), files.size());
        return said;
    };
    EXPECT_EQ(save({place / "kekka"}, {}), "");
    EXPECT_TRUE(asked[0].endsWith(QStringLiteral("/結果通知書_さくら見本設備株式会社_第28期_改善前.pdf")))
        << asked[0].toStdString();
    EXPECT_TRUE(Read_Text_File(file).starts_with("%PDF-"));

    // A file that is there is overwritten only where the user says so, whether the ending was typed or not.
    for (const char* name : {"kekka", "kekka.pdf"}) {
        Write_Text_File(file, "先の内容");
        EXPECT_PRED2(Has, save({place / name, ""}, {}), "「kekka.pdf」") << "the default is no";
        EXPECT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(Read_Text_File(file), "先の内容");
    }
    save({place / "kekka"}, {Answer::Yes});
    EXPECT_TRUE(Read_Text_File(file).starts_with("%PDF-"));

    fs::create_symlink(folder.path / "Morvane.dat", place / "store.pdf");
    for (const fs::path& refused :
         {fs::path("/nai/kekka.pdf"), folder.path / "kekka.pdf", place / "store.pdf"}) {
        EXPECT_PRED2(Has, save({refused}, {Answer::Yes}), "PDF保存エラー：");
    }
    EXPECT_FALSE(fs::exists(folder.path / "kekka.pdf"));
    EXPECT_EQ(save({""}, {}), "");
    EXPECT_FALSE(window->Prt().Prt_Doing);
}

TEST(Painter_Target_Test, A_Shape_Is_Filled_With_Its_Colour) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Painter_Target target(painter, 1);
    const std::array<Point, 3> corners = {{{0, 0}, {30, 0}, {0, 30}}};
    target.Fill(corners, 0x2010F0);
    painter.end();
    EXPECT_EQ(image.pixelColor(5, 5), QColor(0xf0, 0x10, 0x20));
    EXPECT_EQ(image.pixelColor(25, 25), QColor(Qt::white));
}

// The sheet is laid out by the widths of the fonts' own tables; what the painter draws must be as wide.
TEST(Painter_Target_Test, Painted_Texts_Are_As_Wide_As_Laid_Out) {
    constexpr double dots_per_mm = 96 / 25.4;
    for (const double size : {5.0, 7.5, 8.5, 13.0}) {
        for (const Report_Face face : {Report_Face::Gothic, Report_Face::Mincho}) {
            for (const char* text : {"|1,234,567,890|", "|ISO9001登録の有無|", "|ﾌﾟﾚｽﾄﾚｽﾄｺﾝｸﾘｰﾄ|"}) {
                QImage image(400, 40, QImage::Format_Grayscale8);
                image.fill(Qt::white);
                QPainter painter(&image);
                Painter_Target target(painter, dots_per_mm);
                target.Text(text, 5, 2, face, size);
                painter.end();
                double laid_out = 0;
                for (const Letter& letter : Letters_Of(text)) {
                    laid_out += Print_Target::Char_Width(letter, face, size) * dots_per_mm;
                }
                const double bar = Print_Target::Char_Width({U'|'}, face, size) * dots_per_mm;
                // From the first bar to the last one.
                int first = image.width();
                int last = 0;
                for (int x = 0; x < image.width(); ++x) {
                    for (int y = 0; y < image.height(); ++y) {
                        if (qGray(image.pixel(x, y)) < 200) {
                            first = std::min(first, x);
                            last = x;
                        }
                    }
                }
                EXPECT_NEAR(last - first, laid_out - bar, 1.5) << text << " " << size;
                EXPECT_NEAR(first, 5 * dots_per_mm + bar / 2, 1.5) << text << " " << size;
            }
        }
    }
}

} // namespace
} // namespace morvane::tests
