// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/entry_cell.h"

#include <QWidget>
#include <map>
#include <span>
#include <string>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace morvane {

/// One entry of a Field_Form.
struct Field {
    const char* name = "";         ///< objectName of its cell
    const char* caption = nullptr; ///< begins a line; null: the cell follows the one before it in its line
    Entry_Kind kind = Entry_Kind::Text;
    int max_length = 255;
    int width = 20;           ///< in half-width characters; a Japanese character takes two
    const char* before = "";  ///< text between the former cell of the line and this one ("-")
    const char* hint = "";    ///< text behind the cell ("年", "・・・法人：1")
    const char* choices = ""; ///< the keys of a Choice
    const char* label = "";   ///< accessible name where the caption does not tell enough
    bool password = false;    ///< shown as dots
};

/// Entry cells laid out from a table: captions in a column, cells behind them, several in one line where the
/// table says so. Enter moves on like Tab.
///
///     constexpr Field fields[] = {
///         {.name = "Yu1", .caption = "郵便番号", .kind = Entry_Kind::Digits, .max_length = 3, .width = 3},
///         {.name = "Yu2", .kind = Entry_Kind::Digits, .max_length = 4, .width = 4, .before = "-"},
///         {.name = "Syozai", .caption = "所在地", .max_length = 100, .width = 60},
///     };
///     auto* form = new Field_Form(fields);
///     form->Set_Texts(texts); ... if (form->Is_Edited()) ... form->Focus("Yu1");
class Field_Form : public QWidget {
    Q_OBJECT

  public:
    explicit Field_Form(std::span<const Field> fields, QWidget* parent = nullptr);

    /// The cell of that name. Raises std::out_of_range for a name that the table does not have.
    [[nodiscard]] Entry_Cell& Cell(const std::string& name) const;
    [[nodiscard]] bool Has(const std::string& name) const { return by_name.contains(name); }

    /// Puts the focus into a cell and selects its text.
    void Focus(const std::string& name) const;

    /// What stands in a cell, without the commas of an amount.
    [[nodiscard]] std::string Text(const std::string& name) const { return Cell(name).Bare_Text(); }
    void Set_Text(const std::string& name, const std::string& text) const;

    /// All texts by name.
    [[nodiscard]] std::map<std::string, std::string> Texts() const;

    /// Fills the cells that have a text here and takes the whole as unedited. Names without a cell are passed
    /// over, so that several forms can be filled from one map.
    void Set_Texts(const std::map<std::string, std::string>& texts);

    /// Whether any text differs from what the last Set_Texts (or Set_Unedited) left.
    [[nodiscard]] bool Is_Edited() const { return Texts() != unedited; }
    void Set_Unedited() { unedited = Texts(); }

    /// Adds a line of its own.
    void Add_Line(const QString& caption, QWidget* widget);

    /// The width of the captions in pixels, and a smallest one: forms that stand above each other align.
    [[nodiscard]] int Caption_Width() const;
    void Set_Caption_Width(int pixels);

  Q_SIGNALS:
    void Edited(const QString& name);       ///< the user has changed a text
    void Cell_Entered(const QString& name); ///< the focus has come to a cell
    void Cell_Left(const QString& name);    ///< the focus has gone from a cell and its entry holds

  private:
    void Add_Field(const Field& field);
    void Begin_Line(const QString& caption);

    QGridLayout* grid;
    QHBoxLayout* line = nullptr; ///< the last line
    std::vector<QLabel*> captions;
    std::map<std::string, Entry_Cell*> by_name;
    std::map<std::string, std::string> unedited;
};

} // namespace morvane
