// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_window.h"

#include "data/output_file.h"
#include "data/store_error.h"
#include "law/run_time_error.h"
#include "report/frm_prtset.h"
#include "report/print_watch.h"
#include "review/settle.h"
#include "session/boxes.h"
#include "session/save_or_stay.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <cmath>
#include <utility>
#include <variant>

namespace morvane {

namespace {

constexpr float least_scale = 0.25F;
constexpr float largest_scale = 1.5F;
constexpr float scale_step = 0.25F;
constexpr const char* paper_note = "［頁設定］の用紙ｻｲｽﾞ・印刷の向きは、指定に関わらず「A4、縦」となります。";

/// The user's own folder for documents, or his home; never the folder of the stores.
QString Documents_Folder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

/// The folder of the last PDF of this run of the program.
QString& Pdf_Folder() {
    static QString folder = Documents_Folder();
    return folder;
}

/// How far the ink of a sheet reaches.
struct Extent {
    double right = 0, bottom = 0;

    void Reach(double x, double y) {
        right = std::max(right, x);
        bottom = std::max(bottom, y);
    }
    void operator()(const Drawn_Text& text) {
        Reach(text.x + Print_Target::Text_Width(text.text, text.face, text.size),
              text.y + text.size * Print_Target::mm_per_point);
    }
    void operator()(const Drawn_Line& line) { Reach(std::max(line.x1, line.x2), std::max(line.y1, line.y2)); }
    void operator()(const Drawn_Box& box) { Reach(std::max(box.x1, box.x2), std::max(box.y1, box.y2)); }
    void operator()(const Drawn_Fill& fill) {
        for (const Point& corner : fill.corners) {
            Reach(static_cast<double>(corner.x), static_cast<double>(corner.y));
        }
    }
    void operator()(const Drawn_Circle& circle) { Reach(circle.x + circle.radius, circle.y + circle.radius); }
};

/// The figures of a report; a refusal is a failure that the shell tells.
Rpt_Draw Read_Report(const Connection& cn, const Session& session, const Report_Row& report,
                     const Report_Request& request) {
    try {
        return report.read(cn, session, request);
    } catch (const Score_Refusal& refusal) {
        throw Run_Time_Error(Run_Time_Error::Kind::Type_Mismatch, refusal.what());
    }
}

/// How the printer dialog set the printer, in the words of the printing system.
Print_Options Options_Of(const QPrinter& printer, int copies) {
    Print_Options options;
    // What the dialog keeps for CUPS: names and values in turn, under a key of the toolkit's own.
    constexpr auto cups_options = QPrintEngine::PrintEnginePropertyKey(0xfe00);
    const QStringList set = printer.printEngine()->property(cups_options).toStringList();
    for (qsizetype i = 0; i + 1 < set.size(); i += 2) {
        options.emplace_back(set[i].toStdString(), set[i + 1].toStdString());
    }
    switch (printer.duplex()) {
    case QPrinter::DuplexNone:
        options.emplace_back("sides", "one-sided");
        break;
    case QPrinter::DuplexLongSide:
        options.emplace_back("sides", "two-sided-long-edge");
        break;
    case QPrinter::DuplexShortSide:
        options.emplace_back("sides", "two-sided-short-edge");
        break;
    default:
        break;
    }
    options.emplace_back("copies", std::to_string(copies));
    options.emplace_back("media", "iso_a4_210x297mm");
    options.emplace_back("print-scaling", "none"); // a millimetre is a millimetre
    return options;
}

} // namespace

Report_Window::Report_Window(Shell_Port& shell_port, const Report_Row& report_row,
                             const Report_Request& request)
    : Form(shell_port, QString::fromUtf8(report_row.name), QString::fromUtf8(report_row.title)),
      report(report_row), notice(new QLabel), view(new Sheet_View), status(new QLabel),
      scale_label(new QLabel), page_label(new QLabel) {
    choose_pdf_file = [this](const QString& suggested) {
        return QFileDialog::getSaveFileName(this, QStringLiteral("PDF保存"), suggested,
                                            QStringLiteral("PDF (*.pdf)"), nullptr,
                                            QFileDialog::DontConfirmOverwrite);
    };
    const Connection cn = Cn_Open(shell.session);
    paper = Load_Report_Info(cn, report, prt);
    draw = Read_Report(cn, shell.session, report, request);
    Lay_Out();
    Draw();
    view->To_Top();
    view->setFocus();
}

Report_Window::~Report_Window() = default;

void Report_Window::Lay_Out() {
    Set_Sub_Title(QStringLiteral("%1　第%2期")
                      .arg(QString::fromStdString(draw.heading.Jigyo_Name))
                      .arg(draw.heading.Syori_Ki));
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    const auto add_line = [this](QLabel* label, const char* name, const char* look) {
        label->setObjectName(QString::fromLatin1(name));
        theme::Set_Look(label, look);
        label->setContentsMargins(16, 4, 16, 4);
        label->setWordWrap(true);
        label->hide();
        body->addWidget(label);
    };
    add_line(notice, "Lbl_Notice", "notice");
    body->addWidget(view, 1);
    add_line(status, "Lbl_Status", "done");
    auto* note = new QLabel(QString::fromUtf8(paper_note));
    note->setObjectName(QStringLiteral("Label1"));
    theme::Set_Look(note, "muted");
    note->setContentsMargins(16, 8, 16, 8);
    body->addWidget(note);

    const auto add = [this](const char* name, const char* caption, auto work, bool left,
                            const char* look = nullptr) {
        QPushButton* button = Add_Button(QString::fromLatin1(name), QString::fromUtf8(caption), look, left);
        button->setAccessibleName(button->text().section(QLatin1Char('('), 0, 0));
        Wire(button, &QPushButton::clicked, work);
        return button;
    };
    add(
        "SyukuSyo", "縮小(&D)", [this] { Zoom(-1, true); }, true);
    add(
        "Kakudai", "拡大(&U)", [this] { Zoom(1, true); }, true);
    scale_label->setObjectName(QStringLiteral("Lbl_Scale"));
    scale_label->setMinimumWidth(48);
    former_page = add(
        "Mae_Page", "前頁(&B)", [this] { Turn_Page(-1); }, true);
    next_page = add(
        "Tugi_Page", "次頁(&N)", [this] { Turn_Page(1); }, true);
    page_label->setObjectName(QStringLiteral("Lbl_Page"));
    buttons->insertWidget(2, scale_label);
    buttons->insertWidget(5, page_label);
    add(
        "Pg_Set", "頁設定(&G)", [this] { Pg_Set(); }, false);
    add(
        "Pdf_Save", "PDF保存(&F)", [this] { Pdf_Save(); }, false);
    add(
        "Prt_Exe", "印刷(&P)", [this] { Prt_Exe(); }, false, "primary");
    add(
        "Tojiru", "閉じる(&C)", [this] { reject(); }, false);
    Wire(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, [this] { Prt_Exe(); });
    Wire(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, [this] { Pdf_Save(); });
    Wire(view, &Sheet_View::Zoomed, [this](int steps) { Zoom(steps, false); });
    Wire(view, &Sheet_View::Page_Turned, [this](int by) { Turn_Page(by); });
}

// ---- the preview

void Report_Window::Draw() {
    preview.Clear();
    Prt_ModSet operations(prt, preview);
    draw.draw(operations);
    missing = Missing_Notice(operations.Missing());
    page = std::min(page, preview.Pages().size() - 1);
    Show_Page();
    Show_Notice();
}

/// Says above the sheet what will not be on paper as it should, before it is printed.
void Report_Window::Show_Notice() {
    const Margin_Room room = Room();
    QStringList lines;
    if (!draw.warning.empty()) {
        lines << QString::fromStdString(draw.warning);
    }
    if (!missing.empty()) {
        lines << QString::fromStdString(missing);
    }
    if (prt.Prt_Top > room.top || prt.Prt_Left > room.left) {
        lines << QStringLiteral("余白が大きいため、用紙からはみ出す部分は印刷されません。");
    }
    notice->setText(lines.join(QLatin1Char('\n')));
    notice->setVisible(!lines.isEmpty());
}

void Report_Window::Say(const QString& text) {
    status->setText(text);
    status->setVisible(!text.isEmpty());
}

/// How far the margins may grow before the report leaves the sheet.
Margin_Room Report_Window::Room() {
    Print_State plain;
    plain.Prt_Doing = true;
    Recorded_Sheet sheet;
    Prt_ModSet operations(plain, sheet);
    draw.draw(operations);
    Extent extent;
    for (const auto& drawn_page : sheet.Pages()) {
        for (const Drawn& drawn : drawn_page) {
            std::visit(extent, drawn);
        }
    }
    const auto tenths = [](double mm) { return static_cast<float>(std::floor(mm * 10) / 10); };
    return {tenths(Print_Target::sheet_height - extent.bottom),
            tenths(Print_Target::sheet_width - extent.right)};
}

void Report_Window::Show_Page() {
    const auto scale = static_cast<double>(prt.Prt_Scale);
    view->Show_Page(preview, page, paper.width * scale, paper.height * scale);
    scale_label->setText(QStringLiteral("%1%").arg(qRound(scale * 100)));
    const std::size_t pages = preview.Pages().size();
    page_label->setText(QStringLiteral("%1 / %2頁").arg(page + 1).arg(pages));
    for (QWidget* widget : {static_cast<QWidget*>(former_page), static_cast<QWidget*>(next_page),
                            static_cast<QWidget*>(page_label)}) {
        widget->setVisible(pages > 1);
    }
    former_page->setEnabled(page > 0);
    next_page->setEnabled(page + 1 < pages);
}

void Report_Window::Zoom(int steps, bool beep) {
    const float scale = prt.Prt_Scale + static_cast<float>(steps) * scale_step;
    if (scale < least_scale || scale > largest_scale) {
        if (beep) {
            QApplication::beep();
            Q_EMIT Refused();
        }
        return;
    }
    prt.Prt_Scale = scale;
    Draw();
}

void Report_Window::Turn_Page(int by) {
    if ((by < 0 && page == 0) || (by > 0 && page + 1 >= preview.Pages().size())) {
        return;
    }
    page = by < 0 ? page - 1 : page + 1;
    Show_Page();
    if (by > 0) {
        view->To_Top();
    } else {
        view->To_Bottom();
    }
}

// ---- the printer

QPrinter& Report_Window::Printer() {
    if (own_printer == nullptr) {
        own_printer = std::make_unique<QPrinter>();
        own_printer->setDocName(windowTitle());
        Set_Paper();
    }
    return *own_printer;
}

// Whatever is stored or was chosen in the dialog.
void Report_Window::Set_Paper() {
    own_printer->setResolution(qRound(Print_Target::dots_per_inch));
    own_printer->setFullPage(true);
    if (!own_printer->setPageSize(QPageSize(QPageSize::A4)) ||
        !own_printer->setPageOrientation(QPageLayout::Portrait)) {
        throw Print_Failure("");
    }
}

int Report_Window::CommonDialog1(int copies) {
    QPrinter& printer = Printer();
    printer.setCopyCount(copies);
    QPrintDialog dialog(&printer, QApplication::activeModalWidget());
    dialog.setObjectName(QStringLiteral("CommonDialog1"));
    dialog.setWindowTitle(QStringLiteral("ﾌﾟﾘﾝﾀ設定"));
    // It chooses the printer; the printing is Prt_Exe's.
    for (const QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>()) {
        if (QPushButton* ok = box->button(QDialogButtonBox::Ok)) {
            ok->setText(QStringLiteral("OK"));
        }
    }
    return dialog.exec() == QDialog::Accepted ? printer.copyCount() : copies;
}

bool Report_Window::May_Write(const QString& file) {
    const QFileInfo info(file);
    return !info.exists() ||
           Ask(shell.session, "PDF保存",
               "「" + info.fileName().toStdString() + "」は既にあります。\n上書きしてもよろしいですか？");
}

namespace {

void Tell_Printer_Failure(const Session& session) {
    Tell(session, "Sorvek", "ﾌﾟﾘﾝﾀｴﾗｰです。\n接続状態（電源、用紙ｻｲｽﾞ等）を確認してください。");
}

} // namespace

void Report_Window::Pg_Set() {
    try {
        Frm_PrtSET setting(
            shell, prt, [this](int copies) { return CommonDialog1(copies); }, Room());
        setting.setParent(this, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                    Qt::WindowCloseButtonHint);
        shell.Place(&setting);
        setting.exec();
        Printer();
        Set_Paper();
    } catch (const Print_Failure&) {
        Tell_Printer_Failure(shell.session);
    }
    prt.Prt_Top = prt.Ue_Mrg_Val;
    prt.Prt_Left = prt.Hida_Mrg_Val;
    Draw();
}

void Report_Window::Prt_Exe() {
    Say({});
    try {
        QPrinter& printer = Printer();
        Set_Paper();
        if (printer.outputFormat() == QPrinter::PdfFormat) {
            Print_To_File(printer.outputFileName());
        } else {
            Print_On(printer);
        }
    } catch (const Print_Failure& failure) {
        Say(QString::fromUtf8(failure.what()));
        Tell_Printer_Failure(shell.session);
    }
}

/// The printer dialog offers a file in the place of a printer; where no printer is set up, there is nothing
/// else.
void Report_Window::Print_To_File(const QString& file) {
    if (file.isEmpty()) {
        throw Print_Failure(QPrinterInfo::availablePrinterNames().isEmpty()
                                ? "プリンタが設定されていません。［PDF保存］でファイルに保存できます。"
                                : "出力先のファイルが指定されていません。");
    }
    if (!May_Write(file)) {
        return;
    }
    try {
        Write_Output(file.toStdString(), Pdf_Of(report, draw, prt));
    } catch (const Store_Error& error) {
        throw Print_Failure(error.what());
    }
    Say(QStringLiteral("「%1」に出力しました。").arg(file));
}

void Report_Window::Print_On(const QPrinter& printer) {
    const QString queue = printer.printerName();
    if (queue.isEmpty()) {
        throw Print_Failure("プリンタが設定されていません。［PDF保存］でファイルに保存できます。");
    }
    Print_Job job = Send_To_Queue(queue.toStdString(), Document_Title(report.title, draw.heading),
                                  Pdf_Of(report, draw, prt), Options_Of(printer, prt.Prt_Busu));
    Say(QStringLiteral("プリンタ「%1」に送りました（受付番号 %2）。").arg(queue).arg(job.id));
    Follow(std::move(job));
}

/// What becomes of the document is told where this window has been closed, too.
void Report_Window::Follow(Print_Job job) {
    QObject* teller = shell.Window() != nullptr ? static_cast<QObject*>(shell.Window()) : this;
    auto* watch = new Print_Watch(std::move(job), teller);
    connect(watch, &Print_Watch::Said, this, &Report_Window::Say);
    connect(watch, &Print_Watch::Failed, this, &Report_Window::Say);
    connect(watch, &Print_Watch::Failed, teller,
            [&port = shell] { port.Guard([&port] { Tell_Printer_Failure(port.session); }); });
}

void Report_Window::Pdf_Save() {
    QString file =
        Pdf_Folder() + QLatin1Char('/') + QString::fromStdString(Pdf_File_Name(report.title, draw.heading));
    do {
        file = choose_pdf_file(file);
        if (file.isEmpty()) {
            return;
        }
        if (!file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
            file += QLatin1String(".pdf");
        }
    } while (!May_Write(file));
    try {
        Write_Output(file.toStdString(), Pdf_Of(report, draw, prt));
    } catch (const Store_Error& error) {
        Tell(shell.session, "PDF保存エラー", std::string("PDFを保存できませんでした。\n") + error.what());
        return;
    }
    Pdf_Folder() = QFileInfo(file).absolutePath();
    Say(QStringLiteral("「%1」に保存しました。").arg(file));
}

// ---- the end

bool Report_Window::May_Close() {
    const auto save = [this] { Save_Report_Info(shell.session, report, prt); };
    return Save_Or_Stay(shell.session, save,
                        {.what = "余白と部数", .discard = "余白と部数の変更を保存しないで閉じます。"}) !=
           Save_End::Stay;
}

Form* Make_Report(Shell_Port& shell, const char* name) {
    const Report_Row& report = *Find_Report(name);
    const bool improved = shell.menu.mode == Sim_Mode::Improvement;
    return new Report_Window(
        shell, report, Request_In_Hand(shell.session, improved ? Scenario::Kaizen : Scenario::Genjo, report));
}

} // namespace morvane
