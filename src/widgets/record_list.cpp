// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/record_list.h"

#include "widgets/theme.h"

#include <QAbstractItemDelegate>
#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace morvane {

/// The records as Qt asks for them.
class Record_List::Model : public QAbstractTableModel {
  public:
    Model(std::span<const List_Column> list_columns, QObject* parent)
        : QAbstractTableModel(parent), columns(list_columns.begin(), list_columns.end()) {}

    void Reset(std::size_t row_count, std::function<QString(int, int)> text_of) {
        beginResetModel();
        count = static_cast<int>(row_count);
        text = std::move(text_of);
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count; }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(columns.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        switch (role) {
        case Qt::DisplayRole:
            return text(index.row(), index.column());
        case Qt::TextAlignmentRole:
            return Alignment(index.column());
        default:
            return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal) {
            return {};
        }
        switch (role) {
        case Qt::DisplayRole:
            return QString::fromUtf8(columns[static_cast<std::size_t>(section)].heading);
        case Qt::TextAlignmentRole:
            return Alignment(section);
        default:
            return {};
        }
    }

    const std::vector<List_Column> columns;

  private:
    QVariant Alignment(int column) const {
        const bool number = columns[static_cast<std::size_t>(column)].number;
        return static_cast<int>((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }

    int count = 0;
    std::function<QString(int, int)> text;
};

/// Paints a field with the padding of the headings, plainly: a style sheet's items are slow by the thousand.
class Record_List::Painter : public QAbstractItemDelegate {
  public:
    explicit Painter(Record_List* the_list) : QAbstractItemDelegate(the_list), list(*the_list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        const bool odd = index.row() % 2 == 1;
        painter->fillRect(option.rect, QColor(selected ? theme::selected
                                              : odd    ? theme::zebra
                                                       : theme::surface));
        painter->setPen(QColor(theme::text));
        QFont font = option.font;
        if (index.row() == list.marked) {
            font.setBold(true);
            if (index.column() == 0) {
                painter->fillRect(QRect(option.rect.topLeft(), QSize(4, option.rect.height())),
                                  QColor(theme::accent));
            }
        }
        painter->setFont(font);
        const QRect room = option.rect.adjusted(padding, 0, -padding, 0);
        const QString text =
            QFontMetrics(font).elidedText(index.data().toString(), Qt::ElideRight, room.width());
        painter->drawText(room, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine, text);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {option.fontMetrics.horizontalAdvance(index.data().toString()) + 2 * padding, row_height};
    }

    static constexpr int padding = 8;
    static constexpr int row_height = theme::cell_height + 2;

  private:
    const Record_List& list;
};

Record_List::Record_List(std::span<const List_Column> columns, QWidget* parent)
    : QTableView(parent), records(new Model(columns, this)) {
    setModel(records);
    setItemDelegate(new Painter(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    theme::Set_Look(this, "records");
    setCornerButtonEnabled(false);
    setAttribute(Qt::WA_InputMethodEnabled);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(Painter::row_height);
    horizontalHeader()->setHighlightSections(false);
    ensurePolished();
    const int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < records->columnCount(); ++column) {
        const int width = records->columns[static_cast<std::size_t>(column)].width;
        if (width == 0) {
            horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
        } else {
            setColumnWidth(column, character * width + 2 * Painter::padding + 4);
        }
    }
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT Row_Opened(index.row()); });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { Q_EMIT Row_Selected(Selected_Row()); });
}

void Record_List::Set_Source(std::size_t count, std::function<QString(int, int)> text) {
    marked = -1;
    records->Reset(count, std::move(text));
    sought.clear();
    scrollToTop();
    // A reset drops the selection without a word.
    Q_EMIT Row_Selected(-1);
}

void Record_List::Set_Rows(std::vector<std::vector<std::string>> rows) {
    const std::size_t count = rows.size();
    Set_Source(count, [held = std::move(rows)](int row, int column) {
        const auto& fields = held[static_cast<std::size_t>(row)];
        const auto at = static_cast<std::size_t>(column);
        return at < fields.size() ? QString::fromStdString(fields[at]) : QString();
    });
}

int Record_List::Selected_Row() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
}

void Record_List::Select_Row(int row) {
    if (row < 0) {
        clearSelection();
        setCurrentIndex({});
        return;
    }
    selectRow(row);
    scrollTo(records->index(row, 0));
}

void Record_List::Show_Row(int row) {
    scrollTo(records->index(row, 0), PositionAtCenter);
}

void Record_List::Set_Marked_Row(int row) {
    marked = row;
    viewport()->update();
}

QString Record_List::Text_At(int row, int column) const {
    return records->data(records->index(row, column), Qt::DisplayRole).toString();
}

void Record_List::keyboardSearch(const QString& typed) {
    if (find_column < 0 || typed.isEmpty()) {
        return;
    }
    if (!last_typed.isValid() || last_typed.elapsed() > 1000) {
        sought.clear();
    }
    last_typed.start();
    // Full-width and half-width letters, digits and kana count as the same.
    const QString longer = sought + typed.normalized(QString::NormalizationForm_KC);
    for (int row = 0; row < records->rowCount(); ++row) {
        const QString text = Text_At(row, find_column).normalized(QString::NormalizationForm_KC);
        if (text.startsWith(longer, Qt::CaseInsensitive)) {
            sought = longer;
            Select_Row(row);
            return;
        }
    }
    QApplication::beep();
}

void Record_List::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (Selected_Row() >= 0) {
            Q_EMIT Row_Opened(Selected_Row());
        }
        event->accept();
        return;
    }
    const bool is_end = event->key() == Qt::Key_Home || event->key() == Qt::Key_End;
    const bool is_arrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (records->rowCount() > 0 && is_end) {
        Select_Row(event->key() == Qt::Key_Home ? 0 : records->rowCount() - 1);
        event->accept();
        return;
    }
    // With nothing selected the first arrow key selects the marked or the first record instead of passing
    // over it.
    if (records->rowCount() > 0 && Selected_Row() < 0 && is_arrow) {
        Select_Row(std::max(marked, 0));
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void Record_List::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty()) {
        keyboardSearch(event->commitString());
    }
    event->accept();
}

void Record_List::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (records->rowCount() == 0 && !empty_text.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(QColor(theme::muted));
        painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, empty_text);
    }
}

} // namespace morvane
