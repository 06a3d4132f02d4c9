// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "data/value.h"
#include "widgets/section_box.h"

#include <map>
#include <span>
#include <string>
#include <vector>

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

    const char* name = ""; ///< of what shows the figure or the mark; none for a heading
    const char* caption = "";
    Line line = Line::Figure;
};

/// Several columns of figures: their headings, and the objectName of a figure by the name of its field and
/// its column. With one column it is the field's name.
struct Total_Columns {
    std::vector<const char*> headings = {};
    std::string (*control)(const std::string& field, std::size_t column) = nullptr;
};

/// Shows a mark: yes on yellow, no on red.
void Show_Check(QLabel& mark, bool holds, const QString& text);

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
                const Total_Columns& columns = {}, QWidget* parent = nullptr);

    /// Shows a figure with commas; Null is blank. The routines that take a name raise std::out_of_range for
    /// one that the table does not have.
    void Set_Value(const std::string& name, const Value& value, std::size_t column = 0);
    [[nodiscard]] const Value& Get_Value(const std::string& name) const {
        return lines.at(name).front().value;
    }

    /// Shows the last columns alone, from this one on.
    void Show_From(std::size_t column);

    /// Puts a field of entry in the place of a figure, which is shown no more.
    void Put_Entry(const std::string& name, std::size_t column, QWidget* entry);

    /// Shows a text in the place of a figure.
    void Set_Text(const std::string& name, const QString& text);
    [[nodiscard]] QString Text(const std::string& name) const;

    /// Shows a mark ("チェック ⇒ ＯＫ！").
    void Set_Check(const std::string& name, bool holds, const QString& text);

  private:
    struct Figure {
        QLabel* label = nullptr;
        Value value;
    };

    void Add_Headings();
    void Add_Line(const Total_Field& field, int characters);
    void Add_Mark(const Total_Field& field, int row);
    QLabel* Make_Figure(const Total_Field& field, std::size_t column) const;
    [[nodiscard]] int Column_Count() const { return static_cast<int>(headings.size()); }

    QGridLayout* grid;
    std::vector<const char*> headings;
    std::string (*control)(const std::string& field, std::size_t column);
    std::map<std::string, std::vector<Figure>> lines; ///< the figures of each
};

} // namespace morvane
