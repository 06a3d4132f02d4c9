// SPDX-FileCopyrightText: The Morvane developers
#include "report/report_window.h"

#include "data/store_error.h"
#include "data/store_file.h"
#include "report/frm_prtset.h"
#include "report/painter_target.h"
#include "report/pdf_target.h"
#include "session/boxes.h"
#include "widgets/theme.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageSize>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <stdexcept>

namespace morvane {

namespace {

constexpr float least_scale = 0.25F;
constexpr float largest_scale = 1.5F;
constexpr float scale_step = 0.25F;
constexpr const char* paper_note = "［頁設定］の用紙ｻｲｽﾞ・印刷の向きは、指定に関わらず「A4、縦」となります。";

/// The printer does not take the report.
class Printer_Failure : public std::runtime_error {
  public:
    Printer_Failure() : std::runtime_error("the printer failed") {}
};

/// While it lives the report is drawn in its own size with full lines; then the preview's state is back.
class On_Paper {
  public:
    explicit On_Paper(Print_State& print_state) : prt(print_state), scale(print_state.Prt_Scale) {
        prt.Prt_Scale = 1.0F;
        prt.Prt_Doing = true;
    }
    On_Paper(const On_Paper&) = delete;
    On_Paper& operator=(const On_Paper&) = delete;
    ~On_Paper() {
        prt.Prt_Scale = scale;
        prt.Prt_Doing = false;
    }

  private:
    Print_State& prt;
    float scale;
};

/// Whether a report can be sent: to a queue that is there, or into the file that the user named instead.
bool Is_Ready(const QPrinter& printer) {
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        return !printer.outputFileName().isEmpty();
    }
    return printer.isValid() && !QPrinterInfo::printerInfo(printer.printerName()).isNull();
}

QString File_Name_Of(const QString& title, const Session& session) {
    QString name = title + QLatin1Char('_') + QString::fromStdString(session.Jigyo_Name) +
                   QStringLiteral("_第%1期.pdf").arg(session.Syori_Ki);
    for (QChar& c : name) {
        c = QStringLiteral("\\/:*?\"<>|").contains(c) ? QLatin1Char('_') : c;
    }
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QLatin1Char('/') + name;
}

} // namespace

Report_Window::Report_Window(Shell_Port& shell_port, const Report_Row& report_row)
    : Form(shell_port, QString::fromUtf8(report_row.name), QString::fromUtf8(report_row.window_title)),
      report(report_row), prt(shell_port.session.Prt), view(new Sheet_View), scale_label(new QLabel),
      page_label(new QLabel) {
    choose_pdf_file = [this](const QString& suggested) {
        return QFileDialog::getSaveFileName(this, QStringLiteral("PDF保存"), suggested,
                                            QStringLiteral("PDF (*.pdf)"));
    };
    paper = Load_Report_Info(Cn_Open(shell.session), report, prt);
    draw = report.read(shell.session);
    Lay_Out();
    Draw();
    view->To_Top();
    view->setFocus();
}

Report_Window::~Report_Window() = default;

void Report_Window::Lay_Out() {
    Set_Sub_Title(QStringLiteral("%1　第%2期")
                      .arg(QString::fromStdString(shell.session.Jigyo_Name))
                      .arg(shell.session.Syori_Ki));
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    body->addWidget(view, 1);
    auto* note = new QLabel(QString::fromUtf8(paper_note));
    note->setObjectName(QStringLiteral("Label1"));
    theme::Set_Look(note, "muted");
    note->setContentsMargins(16, 8, 16, 8);
    body->addWidget(note);

    const auto add = [this](const char* name, const char* caption, auto work, bool left,
                            const char* look = nullptr) {
        QPushButton* button = Add_Button(QString::fromLatin1(name), QString::fromUtf8(caption), look, left);
        Wire(button, &QPushButton::clicked, work);
        return button;
    };
    add(
        "SyukuSyo", "縮小", [this] { Zoom(-1, true); }, true);
    add(
        "Kakudai", "拡大", [this] { Zoom(1, true); }, true);
    scale_label->setObjectName(QStringLiteral("Lbl_Scale"));
    scale_label->setMinimumWidth(48);
    former_page = add(
        "Mae_Page", "前頁", [this] { Turn_Page(-1); }, true);
    next_page = add(
        "Tugi_Page", "次頁", [this] { Turn_Page(1); }, true);
    page_label->setObjectName(QStringLiteral("Lbl_Page"));
    buttons->insertWidget(2, scale_label);
    buttons->insertWidget(5, page_label);
    add(
        "Pg_Set", "頁設定", [this] { Pg_Set(); }, false);
    add(
        "Pdf_Save", "PDF保存", [this] { Pdf_Save(); }, false);
    add(
        "Prt_Exe", "印刷", [this] { Prt_Exe(); }, false, "primary");
    add(
        "Tojiru", "閉じる", [this] { reject(); }, false);
    Wire(view, &Sheet_View::Zoomed, [this](int steps) { Zoom(steps, false); });
    Wire(view, &Sheet_View::Page_Turned, [this](int by) { Turn_Page(by); });
}

// ---- the preview

void Report_Window::Draw() {
    preview.Clear();
    Prt_ModSet operations(prt, preview);
    draw(operations);
    page = std::min(page, preview.Pages().size() - 1);
    Show_Page();
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
        throw Printer_Failure();
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

void Report_Window::Draw_On_Paper(Print_Target& target) {
    Prt_ModSet operations(prt, target);
    draw(operations);
}

void Report_Window::Print_On(QPrinter& printer) {
    Set_Paper();
    printer.setCopyCount(prt.Prt_Busu);
    if (!Is_Ready(printer)) {
        throw Printer_Failure();
    }
    QPainter painter;
    if (!painter.begin(&printer)) {
        throw Printer_Failure();
    }
    Painter_Target target(painter, Print_Target::dots_per_inch / Print_Target::mm_per_inch, [&printer] {
        if (!printer.newPage()) {
            throw Printer_Failure();
        }
    });
    Draw_On_Paper(target);
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        throw Printer_Failure();
    }
}

namespace {

void Tell_Printer_Failure(const Session& session) {
    Tell(session, "Sorvek", "ﾌﾟﾘﾝﾀｴﾗｰです。\n接続状態（電源、用紙ｻｲｽﾞ等）を確認してください。");
}

} // namespace

void Report_Window::Pg_Set() {
    try {
        Frm_PrtSET setting(shell, [this](int copies) { return CommonDialog1(copies); });
        setting.setParent(this, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                    Qt::WindowCloseButtonHint);
        setting.exec();
        Printer();
        Set_Paper();
    } catch (const Printer_Failure&) {
        Tell_Printer_Failure(shell.session);
    }
    prt.Prt_Top = prt.Ue_Mrg_Val;
    prt.Prt_Left = prt.Hida_Mrg_Val;
    Draw();
}

void Report_Window::Prt_Exe() {
    try {
        const On_Paper on_paper(prt);
        Print_On(Printer());
    } catch (const Printer_Failure&) {
        Tell_Printer_Failure(shell.session);
    }
}

void Report_Window::Pdf_Save() {
    QString file = choose_pdf_file(File_Name_Of(windowTitle(), shell.session));
    if (file.isEmpty()) {
        return;
    }
    if (!file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
        file += QLatin1String(".pdf");
    }
    Pdf_Target target(windowTitle().toStdString() + " " + shell.session.Jigyo_Name);
    {
        const On_Paper on_paper(prt);
        Draw_On_Paper(target);
    }
    try {
        Write_Text_File(file.toStdString(), target.Finish());
    } catch (const Store_Error& error) {
        Tell(shell.session, "PDF保存エラー", std::string("PDFを保存できませんでした。\n") + error.what());
    }
}

// ---- the end

bool Report_Window::May_Close() {
    Save_Report_Info(Cn_Open(shell.session), report, prt);
    return true;
}

} // namespace morvane
