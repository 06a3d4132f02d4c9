// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/value.h"
#include "widgets/section_box.h"

#include <map>
#include <span>
#include <string>

class QGridLayout;
class QLabel;

namespace morvane {

/// One line of a Total_Panel.
struct Total_Field {
    enum class Line {
        Figure,  ///< caption and figure
        Sum,     ///< the same in bold, under a line
        Heading, ///< caption alone
        Check    ///< a mark over the whole width: yes on yellow, no on red
    };

    const char* name = ""; ///< objectName of what shows the figure or the mark; none for a heading
    const char* caption = "";
    Line line = Line::Figure;
};

/// Figures beside an entry screen, from a table: captions at the left, figures at the right in tabular
/// digits.
///
///     constexpr Total_Field fields[] = {{"BsIp_Rds", "流動資産"},
///                                       {"BsIp_SSKei", "資産合計", Total_Field::Line::Sum},
///                                       {"Check", "", Total_Field::Line::Check}};
class Total_Panel : public Section_Box {
  public:
    /// `characters` is the width of the figures in half-width characters.
    Total_Panel(const QString& heading, std::span<const Total_Field> fields, int characters = 16,
                QWidget* parent = nullptr);

    /// Shows a figure with commas; Null is blank. The routines that take a name raise std::out_of_range for
    /// one that the table does not have.
    void Set_Value(const std::string& name, const Value& value);
    [[nodiscard]] const Value& Get_Value(const std::string& name) const { return lines.at(name).value; }

    /// Shows a text in the place of a figure.
    void Set_Text(const std::string& name, const QString& text);
    [[nodiscard]] QString Text(const std::string& name) const;

    /// Shows a mark ("チェック ⇒ ＯＫ！").
    void Set_Check(const std::string& name, bool holds, const QString& text);

  private:
    struct Shown {
        QLabel* figure = nullptr;
        Value value;
        bool holds = false;
    };

    void Add_Line(const Total_Field& field, int characters);

    QGridLayout* grid;
    std::map<std::string, Shown> lines;
};

} // namespace morvane
