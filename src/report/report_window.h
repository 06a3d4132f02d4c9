// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "report/frm_prtset.h"
#include "report/print_queue.h"
#include "report/recorded_sheet.h"
#include "report/report_table.h"
#include "report/sheet_view.h"
#include "widgets/form.h"

#include <functional>
#include <memory>

class QLabel;
class QPrinter;

namespace morvane {

/// The window of every report: the preview of its sheet, page setting, print, PDF. The figures are read when
/// it opens; each change draws the whole report anew. It keeps the margins when it closes.
class Report_Window : public Form {
    Q_OBJECT

  public:
    /// Reads the report's margins and the figures asked for. Raises Store_Error, Run_Time_Error.
    Report_Window(Shell_Port& shell_port, const Report_Row& report_row, const Report_Request& request);
    ~Report_Window() override;

    /// The printer in use: the system's own until another one is chosen.
    QPrinter& Printer();

    /// Asks for the file of a PDF, with a name to begin with; an empty one cancels. Whether a file that is
    /// there may be overwritten is asked behind it. Tests put their own here.
    std::function<QString(const QString&)> choose_pdf_file;

    [[nodiscard]] const Recorded_Sheet& Preview() const { return preview; }
    [[nodiscard]] const Print_State& Prt() const { return prt; }
    [[nodiscard]] QSize sizeHint() const override { return {960, 720}; }

  Q_SIGNALS:
    void Refused(); ///< a beep: the scale is at its end

  protected:
    bool May_Close() override;

  private:
    void Lay_Out();
    void Draw();
    void Zoom(int steps, bool beep);
    void Turn_Page(int by);
    void Show_Page();
    void Pg_Set();
    void Prt_Exe();
    void Pdf_Save();
    [[nodiscard]] bool May_Write(const QString& file);
    void Print_To_File(const QString& file);
    void Print_On(const QPrinter& printer);
    void Follow(Print_Job job);
    [[nodiscard]] Margin_Room Room();
    void Say(const QString& text);
    void Show_Notice();
    int CommonDialog1(int copies);
    void Set_Paper();

    const Report_Row& report;
    Print_State prt;
    Rpt_Draw draw;
    Sheet_Size paper; ///< of the preview
    std::size_t page = 0;
    Recorded_Sheet preview;
    std::string missing; ///< notice of letters that no font has
    std::unique_ptr<QPrinter> own_printer;
    QLabel* notice; ///< what will not be printed as it should; hidden while there is nothing to say
    Sheet_View* view;
    QLabel* status; ///< where the last print or PDF went
    QLabel* scale_label;
    QLabel* page_label;
    QPushButton* former_page;
    QPushButton* next_page;
};

/// Makes the window of the report of that name, asked for what is in hand.
Form* Make_Report(Shell_Port& shell, const char* name);

} // namespace morvane
