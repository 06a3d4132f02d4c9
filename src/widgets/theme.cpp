// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/theme.h"

#include "widgets/window_keys.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>
#include <QWidget>

namespace morvane::theme {

namespace {

QString Name(QRgb colour) {
    return QColor(colour).name();
}

QPalette Palette() {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, surface);
    palette.setColor(QPalette::AlternateBase, zebra);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, button_rest);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, surface);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, muted);
    palette.setColor(QPalette::Link, accent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(disabled));
    }
    return palette;
}

// One sheet for what the palette cannot say. Widgets are told apart by class or by the property "look".
QString Style_Sheet() {
    QString sheet = QStringLiteral(R"(
QMenuBar { background: %surface; border-bottom: 1px solid %line; padding: 2px 4px; }
QMenuBar::item { padding: 4px 10px; border-radius: 3px; background: transparent; }
QMenuBar::item:selected { background: %soft; color: %accent; }
QMenuBar::item:disabled { color: %disabled; }
QPushButton { background: %surface; border: 1px solid %line; border-radius: 3px; padding: 3px 14px;
              min-height: 22px; outline: none; }
QPushButton:hover { border-color: %accent; }
QPushButton:focus { border: 2px solid %accent; padding: 2px 13px; background: %soft; }
QPushButton:pressed { background: %line; }
QPushButton:default { border: 1px solid %accent; color: %accent; }
QPushButton:disabled { background: %window; border-color: %pale; color: %disabled; }
QPushButton[look="primary"] { background: %accent; border-color: %accent; color: white; }
QPushButton[look="primary"]:hover { background: #2A70BF; }
QPushButton[look="primary"]:focus { background: #123A66; border: 3px solid #FFC21A; padding: 1px 12px; }
QPushButton[look="primary"]:disabled { background: #B9C6D6; border-color: #B9C6D6; }
QWidget[look="tight"] QPushButton { padding: 3px 6px; }
QWidget[look="tight"] QPushButton:focus { padding: 2px 5px; }
QWidget[look="tight"] QPushButton[look="primary"]:focus { padding: 1px 4px; }
QPushButton[look="menu"] { background: %rest; border: 1px solid #C4C4C4; padding: 4px 8px; text-align: center; }
QPushButton[look="menu"]:hover { border-color: %accent; }
QPushButton[look="menu"]:focus { border: 2px solid %accent; padding: 3px 7px; }
QPushButton[look="menu"][open="true"] { background: %open; border-color: %accent; }
QPushButton[look="menu"]:disabled { color: %disabled; background: #ECEEF0; border-color: #D9DDE2; }
QPushButton[look="menu"][open="true"]:disabled { background: %open; border-color: %accent; color: %text; }
QPushButton[look="check_button"] { padding: 1px 8px; min-height: 20px; }
QPushButton[look="check_button"]:focus { padding: 0 7px; }
QPushButton[look="choice"] { min-width: 180px; min-height: 44px; font-size: 14pt; font-weight: bold; }
QPushButton[look="chooser"] { background: %rest; border-color: #C4C4C4; padding: 1px 4px; min-height: 22px; }
QPushButton[look="chooser"]:hover { border-color: %accent; }
QPushButton[look="chooser"]:checked { background: %open; border-color: %accent; }
QPushButton[look="chooser"]:focus { border: 2px solid %accent; padding: 0 3px; }
QPushButton[look="kana"] { padding: 0; min-width: 26px; min-height: 24px; }
QPushButton[look="kana"]:focus { padding: 0; border: 2px solid %accent; }
QPushButton[look="kana"]:checked { background: %accent; color: white; border-color: %accent; }
QPushButton[look="kana"]:checked:focus { background: #123A66; border: 3px solid #FFC21A; }
QLineEdit, QPlainTextEdit, QTextEdit, QSpinBox, QComboBox { background: %surface; border: 1px solid %line;
              border-radius: 2px; padding: 1px 5px; selection-background-color: %accent;
              selection-color: white; }
QLineEdit { min-height: 22px; max-height: 22px; }
QLineEdit:hover, QPlainTextEdit:hover, QTextEdit:hover, QComboBox:hover, QSpinBox:hover { border-color: #93A4B7; }
QComboBox, QSpinBox { min-height: 22px; }
QComboBox:focus, QSpinBox:focus { border: 1px solid %accent; background: %soft; }
QComboBox:disabled, QSpinBox:disabled { background: %window; color: %disabled; }
QComboBox::drop-down { border: 0; width: 22px; }
QComboBox::down-arrow, QSpinBox::down-arrow { image: url(:/chevron-down.svg); width: 12px; height: 12px; }
QSpinBox::up-arrow { image: url(:/chevron-up.svg); width: 12px; height: 12px; }
QSpinBox::up-button, QSpinBox::down-button { border: 0; width: 20px; }
QComboBox QAbstractItemView { border: 1px solid %line; outline: 0; selection-background-color: %soft;
              selection-color: %text; }
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus { background: %focus; border: 1px solid %accent; }
QLineEdit:read-only { background: %locked; }
QPlainTextEdit:read-only, QTextEdit:read-only { background: %window; }
QLineEdit[look="grid"] { border: 1px solid %accent; border-radius: 0; padding: 0 3px; background: %focus;
              min-height: 0; max-height: 1000px; }
QLineEdit[look="grid"]:read-only { background: %locked; }
QLineEdit:disabled { background: %window; border-color: %pale; color: %disabled; }
QCheckBox, QRadioButton { spacing: 6px; padding: 2px; border: 1px solid transparent; border-radius: 2px; }
QCheckBox:focus, QRadioButton:focus { border: 1px solid %accent; background: %soft; }
QCheckBox:disabled, QRadioButton:disabled { color: %disabled; }
QTextBrowser { background: %surface; border: 1px solid %line; selection-background-color: %accent;
              selection-color: white; }
QTableView, QListView { background: %surface; border: 1px solid %line; gridline-color: %grid;
              selection-background-color: %soft; selection-color: %text; outline: 0; }
QTableView[look="grid"] { border: 0; }
QTableView[look="records"] { border: 2px solid %line; }
QTableView[look="records"]:focus { border: 2px solid %accent; }
QFrame[look="strip"] { background: %soft; border: 1px solid %line; border-radius: 3px; }
QFrame[look="grid_frame"] { background: %surface; border: 1px solid %line; }
QFrame[look="grid_foot"] { background: %soft; border: 0; border-top: 2px solid %accent; }
QTableView::item:selected, QListView::item:selected { background: %selected; color: %text; }
QHeaderView { background: %soft; border: 0; }
QHeaderView::section { background: %soft; color: %text; border: 0; border-right: 1px solid %line;
              border-bottom: 1px solid %line; padding: 3px 8px; font-weight: bold; }
QFrame[look="section"] { background: %surface; border: 1px solid %line; border-radius: 4px; }
QLabel[look="band"] { background: %soft; color: %accent; font-weight: bold; padding: 4px 10px;
              border-top-left-radius: 3px; border-top-right-radius: 3px; border-bottom: 1px solid %line; }
QLabel[look="title"] { font-size: 14pt; font-weight: bold; }
QLabel[look="heading"] { font-size: 12pt; font-weight: bold; }
QLabel[look="muted"] { color: %muted; }
QLabel[look="notice"] { background: #FFF3CD; border-bottom: 1px solid #E0C878; }
QLabel[look="fault"] { color: #B3261E; }
QLabel[look="done"] { background: %soft; border-top: 1px solid %line; }
QLabel[look="group"] { background: %soft; color: %accent; font-weight: bold; padding: 0 6px; }
QLabel[look="panel_heading"] { color: %accent; font-weight: bold; padding: 6px 8px 0 8px; }
QLabel[look="panel_figure"] { border: 0; border-bottom: 1px solid %grid; padding: 0 8px; }
QLabel[look="panel_sum"] { font-weight: bold; border: 0; border-top: 1px solid %muted; padding: 0 8px;
              background: %shown; }
QLabel[look="check"] { font-weight: bold; padding: 3px; }
QFrame[look="header"] { background: %surface; border: 0; border-bottom: 2px solid %accent; }
QFrame[look="command"] { background: #E9EDF2; border: 0; border-right: 1px solid %line; }
QFrame[look="popout"] { background: %surface; border: 0; border-right: 1px solid %line; }
QFrame[look="company"] { background: %accent; border: 0; border-radius: 4px; }
QFrame[look="company"] QLabel { color: white; }
QMdiArea { border: 0; }
QScrollArea { border: 0; background: transparent; }
QAbstractScrollArea::corner { border: 0; background: transparent; }
QScrollBar { background: #EBEEF2; border: 0; }
QScrollBar:vertical { width: 13px; }
QScrollBar:horizontal { height: 13px; }
QScrollArea[look="menu_column"] QScrollBar:vertical { width: 9px; }
QScrollArea[look="menu_column"] QScrollBar { background: transparent; }
QScrollBar::handle { background: #BCC7D3; border-radius: 4px; margin: 2px; }
QScrollBar::handle:hover { background: #93A4B7; }
QScrollBar::handle:vertical { min-height: 32px; }
QScrollBar::handle:disabled { background: transparent; }
QScrollBar::handle:horizontal { min-width: 32px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QMenu { background: %surface; border: 1px solid %line; padding: 4px; }
QMenu::item { padding: 4px 24px 4px 12px; border-radius: 3px; }
QMenu::item:selected { background: %soft; color: %accent; }
QMenu::item:disabled { color: %disabled; background: transparent; }
QMenu::separator { height: 1px; background: %line; margin: 4px 8px; }
QTabWidget::pane { border: 1px solid %line; background: %surface; top: -1px; }
QTabBar::tab { background: %window; border: 1px solid %line; padding: 5px 16px; margin-right: 2px; }
QTabBar::tab:selected { background: %surface; border-bottom-color: %surface; color: %accent; font-weight: bold; }
QTabBar::tab:focus { color: %accent; border-color: %accent; }
QProgressBar { background: %surface; border: 1px solid %line; border-radius: 3px; text-align: center;
              min-height: 16px; }
QProgressBar::chunk { background: %accent; border-radius: 2px; }
QDialog[look="message"] { background: %surface; }
QToolTip { border: 1px solid %line; padding: 3px; }
)");
    for (const auto& [mark, colour] : {std::pair{"%surface", surface},
                                       {"%line", line},
                                       {"%soft", accent_soft},
                                       {"%accent", accent},
                                       {"%window", window},
                                       {"%focus", focus},
                                       {"%rest", button_rest},
                                       {"%open", button_open},
                                       {"%locked", locked},
                                       {"%muted", muted},
                                       {"%disabled", disabled},
                                       {"%selected", selected},
                                       {"%shown", shown},
                                       {"%pale", 0xFFDDE3EA},
                                       {"%grid", grid_line},
                                       {"%text", text}}) {
        sheet.replace(QLatin1String(mark), Name(colour));
    }
    return sheet;
}

} // namespace

QFont Gothic(double points, bool bold) {
    QFont font(QStringLiteral("IPAexGothic"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

void Set_Look(QWidget* widget, const char* look) {
    widget->setProperty("look", QString::fromLatin1(look));
}

void Apply(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    auto* translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        application.installTranslator(translator);
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(Palette());
    QApplication::setFont(Gothic());
    application.setStyleSheet(Style_Sheet());
    Press_Buttons_At_Once(application);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/morvane.svg")));
}

} // namespace morvane::theme
