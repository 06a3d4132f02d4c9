// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace morvane {

/// One column of a Record_List.
struct List_Column {
    const char* heading = "";
    int width = 0;       ///< in half-width characters; 0 takes the room that is left
    bool number = false; ///< at the right
};

/// A list of records: one line each, at most one selected, nothing selected at first. The texts stay where
/// they are and are asked for as they come into view, so that ten thousand records cost nothing.
///
///     constexpr List_Column columns[] = {{"事業所番号", 10, true}, {"事業所名"}};
///     auto* list = new Record_List(columns);
///     list->Set_Source(rows.size(), [this](int row, int column) { ... return QString ...; });
class Record_List : public QTableView {
    Q_OBJECT

  public:
    explicit Record_List(std::span<const List_Column> columns, QWidget* parent = nullptr);

    /// Shows `count` records; `text` gives a field by row and column for as long as they are shown. The
    /// selection goes.
    void Set_Source(std::size_t count, std::function<QString(int row, int column)> text);

    /// Shows records held by the list itself.
    void Set_Rows(std::vector<std::vector<std::string>> rows);

    [[nodiscard]] int Row_Count() const { return model()->rowCount(); }

    /// The selected record; -1 none.
    [[nodiscard]] int Selected_Row() const;

    /// Selects a record and brings it into view; -1 selects none.
    void Select_Row(int row);

    /// Brings a record into the middle of the view without selecting it.
    void Show_Row(int row);

    /// Marks a record by bold letters and a bar at its left; -1 none, as after new records. The first arrow
    /// key selects it.
    void Set_Marked_Row(int row);
    [[nodiscard]] int Marked_Row() const { return marked; }

    /// Typed characters go to the first record whose text in this column begins with them (-1: none do, as
    /// at first). A pause of a second begins anew; where nothing fits it beeps.
    void Set_Find_Column(int column) { find_column = column; }

    /// What stands in an empty list.
    void Set_Empty_Text(const QString& text) { empty_text = text; }

    /// The text of a field as shown.
    [[nodiscard]] QString Text_At(int row, int column) const;

    void keyboardSearch(const QString& typed) override;

  Q_SIGNALS:
    void Row_Selected(int row); ///< another record is selected; -1 none
    void Row_Opened(int row);   ///< a record was double-clicked, or Enter pressed on the selected one

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    class Model;
    class Painter;

    Model* records;
    int find_column = -1;
    int marked = -1;
    QString sought;
    QElapsedTimer last_typed;
    QString empty_text;
};

} // namespace morvane
