// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/check_opener.h"
#include "screens/syokuta_entry.h"
#include "screens/syokuta_table.h"
#include "widgets/form.h"
#include "widgets/result_strip.h"

#include <array>
#include <vector>

class QHBoxLayout;
class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace morvane {

class Syokuta_Edit;

/// "自己資本額・利益額・従業職員数・その他（Ｘ２，Ｗ）": the entry of the items of X2 and W in the version of
/// the period's law year (Frm_Syokuta, Frm_Syokuta_2011, Frm_Syokuta_2012). Leaving a field calculates,
/// closing the screen stores.
class Frm_Syokuta : public Form {
    Q_OBJECT

  public:
    explicit Frm_Syokuta(Shell_Port& shell_port);

  protected:
    bool May_Close() override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QWidget* Make_Group(const Syokuta_Group& group);
    QWidget* Make_Band(const Syokuta_Group& group);
    QWidget* Make_Row(const Syokuta_Row& row);
    void Add_Cell(QHBoxLayout& line, const Syokuta_Cell& cell, const char* caption);
    void Add_Check(QHBoxLayout& line, const char* score);
    [[nodiscard]] int Column_Of(const Syokuta_Group& group) const;
    void Arrange(int count);

    void Show_W_2012();
    [[nodiscard]] std::int32_t Item(const Syokuta_Edit& edit) const;
    bool Put(const Syokuta_Edit& edit, std::int32_t value);
    bool Take_Entry(Syokuta_Edit& edit);
    void Step_Entry(bool back);
    bool Take_Focused();
    void Cmd_W2X(int index);
    bool Save_First();
    void Step(const Syokuta_Edit& from, int by);
    void Step_Down(const Syokuta_Edit& from, int direction);

    struct Shown_Cell {
        const Syokuta_Cell* cell;
        QLabel* label;
    };
    /// An entry that was taken.
    struct Taken {
        Syokuta_Edit* edit;
        std::int32_t former;
        std::int32_t later;
    };
    struct Placed_Group {
        const Syokuta_Group* group;
        QWidget* box;
    };

    Syokuta_Entry entry;
    Check_Opener checks;
    std::vector<Syokuta_Edit*> edits; ///< in the order of entry
    std::vector<Shown_Cell> labels;
    std::vector<Placed_Group> groups;
    std::array<QVBoxLayout*, 3> columns{};
    std::vector<Taken> done; ///< what Ctrl+Z takes back, the last one first
    std::vector<Taken> undone;
    QScrollArea* scroll;
    Result_Strip* strip;
    QWidget* sheet;
    std::array<int, 3> room_for{}; ///< width of the screen that one, two, three columns need, pixels
    int column_count = 0;
};

} // namespace morvane
