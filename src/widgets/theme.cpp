// SPDX-FileCopyrightText: The Morvane developers
#include "widgets/theme.h"

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
        palette.setColor(QPalette::Disabled, role, QColor(0x9A, 0xA5, 0xB1));
    }
    return palette;
}

// One sheet for what the palette cannot say. Widgets are told apart by class or by the property "look".
QString Style_Sheet() {
    QString sheet = QStringLiteral(R"(
QMenuBar { background: %surface; border-bottom: 1px solid %line; padding: 2px 4px; }
QMenuBar::item { padding: 4px 10px; border-radius: 3px; background: transparent; }
QMenuBar::item:selected { background: %soft; color: %accent; }
QMenuBar::item:disabled { color: #9AA5B1; }
QPushButton { background: %surface; border: 1px solid %line; border-radius: 3px; padding: 3px 14px;
              min-height: 22px; }
QPushButton:hover { border-color: %accent; }
QPushButton:focus { border: 1px solid %accent; background: %soft; }
QPushButton:pressed { background: %line; }
QPushButton:default { border: 1px solid %accent; color: %accent; }
QPushButton:disabled { background: %window; color: #9AA5B1; }
QPushButton[look="primary"] { background: %accent; border-color: %accent; color: white; }
QPushButton[look="primary"]:hover { background: #2A70BF; }
QPushButton[look="primary"]:focus { background: #2A70BF; border: 2px solid %focus; padding: 2px 13px; }
QPushButton[look="primary"]:disabled { background: #B9C6D6; border-color: #B9C6D6; }
QPushButton[look="menu"] { background: %rest; border: 1px solid #C4C4C4; padding: 4px 8px; text-align: center; }
QPushButton[look="menu"]:hover { border-color: %accent; }
QPushButton[look="menu"]:focus { border: 2px solid %accent; padding: 3px 7px; }
QPushButton[look="menu"][open="true"] { background: %open; border-color: %accent; }
QPushButton[look="menu"]:disabled { color: #9AA5B1; background: #ECEEF0; border-color: #D9DDE2; }
QPushButton[look="kana"] { padding: 0; min-width: 26px; min-height: 24px; }
QPushButton[look="kana"]:checked { background: %accent; color: white; border-color: %accent; }
QLineEdit, QPlainTextEdit, QSpinBox, QComboBox { background: %surface; border: 1px solid %line; border-radius: 2px;
              padding: 1px 5px; selection-background-color: %accent; }
QLineEdit { min-height: 22px; max-height: 22px; }
QComboBox { min-height: 22px; }
QLineEdit:focus, QPlainTextEdit:focus { background: %focus; border: 1px solid %accent; }
QLineEdit:read-only, QLineEdit:read-only:focus { background: %locked; }
QLineEdit[look="grid"] { border: 1px solid %accent; border-radius: 0; padding: 0 3px; background: %focus;
              min-height: 0; max-height: 1000px; }
QLineEdit[look="grid"]:read-only { background: %locked; }
QLineEdit:disabled { background: %window; color: #9AA5B1; }
QTableView, QListView, QTextBrowser { background: %surface; border: 1px solid %line; gridline-color: #E2E7ED;
              selection-background-color: %soft; selection-color: %text; }
QTableView[look="grid"] { border: 0; }
QFrame[look="grid_frame"] { background: %surface; border: 1px solid %line; }
QTableView::item:selected, QListView::item:selected { background: #CFE0F4; color: %text; }
QHeaderView::section { background: %soft; color: %text; border: 0; border-right: 1px solid %line;
              border-bottom: 1px solid %line; padding: 3px 8px; font-weight: bold; }
QFrame[look="section"] { background: %surface; border: 1px solid %line; border-radius: 4px; }
QLabel[look="band"] { background: %soft; color: %accent; font-weight: bold; padding: 4px 10px;
              border-top-left-radius: 3px; border-top-right-radius: 3px; border-bottom: 1px solid %line; }
QLabel[look="title"] { font-size: 14pt; font-weight: bold; }
QLabel[look="heading"] { font-size: 12pt; font-weight: bold; }
QLabel[look="muted"] { color: %muted; }
QFrame[look="header"] { background: %surface; border: 0; border-bottom: 2px solid %accent; }
QFrame[look="command"] { background: #E9EDF2; border: 0; border-right: 1px solid %line; }
QFrame[look="popout"] { background: %surface; border: 0; border-right: 1px solid %line; }
QFrame[look="company"] { background: %accent; border: 0; border-radius: 4px; }
QFrame[look="company"] QLabel { color: white; }
QMdiArea { border: 0; }
QScrollArea { border: 0; background: transparent; }
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
                                       {"%text", text}}) {
        sheet.replace(QLatin1String(mark), Name(colour));
    }
    return sheet;
}

QFont Family(const char* family, QFont::StyleHint hint, double points) {
    QFont font(QString::fromLatin1(family));
    font.setStyleHint(hint);
    font.setPointSizeF(points);
    return font;
}

} // namespace

QFont Gothic(double points, bool bold) {
    QFont font = Family("IPAexGothic", QFont::SansSerif, points);
    font.setBold(bold);
    return font;
}

QFont Mincho(double points) {
    return Family("IPAexMincho", QFont::Serif, points);
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
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/morvane.svg")));
}

} // namespace morvane::theme
