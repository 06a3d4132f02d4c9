// SPDX-FileCopyrightText: The Morvane developers
#include "screens/frm_qanda.h"

#include "session/save_or_stay.h"
#include "widgets/entry_cell.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

QPlainTextEdit* Add_Text(QHBoxLayout* row, const char* name, const QString& heading,
                         const std::string& text) {
    auto* panel = new Section_Box(heading);
    auto* edit = new QPlainTextEdit(QString::fromStdString(text));
    edit->setObjectName(QString::fromLatin1(name));
    edit->setAccessibleName(heading);
    edit->setTabChangesFocus(true);
    panel->body->addWidget(edit);
    row->addWidget(panel, 1);
    return edit;
}

} // namespace

Frm_QandA::Frm_QandA(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_QandA"), QStringLiteral("メモ（質問・アドバイス）")),
      screen(shell_port.menu.screen), Title(new Entry_Cell(Entry_Kind::Text)) {
    const Screen_Note note = Read_Note(shell.session, screen);
    Set_Sub_Title(QStringLiteral("第%1期").arg(shell.session.Syori_Ki));
    Title->setObjectName(QStringLiteral("Title"));
    Title->setAccessibleName(QStringLiteral("タイトル"));
    Title->setMaxLength(100);
    Title->Set_Value(note.title);
    auto* title_line = new QHBoxLayout;
    title_line->setSpacing(8);
    title_line->addWidget(new QLabel(QStringLiteral("タイトル")));
    title_line->addWidget(Title, 1);
    auto* texts = new QHBoxLayout;
    texts->setSpacing(theme::panel_gap);
    Shitumon = Add_Text(texts, "Shitumon", QStringLiteral("質問"), note.question);
    Advice = Add_Text(texts, "Advice", QStringLiteral("アドバイス"), note.advice);
    body->addLayout(title_line);
    body->addLayout(texts, 1);
    stored = Shown();

    Add_Help_Button();
    auto* saves = new QLabel(QStringLiteral("閉じると保存されます。"));
    theme::Set_Look(saves, "muted");
    buttons->addWidget(saves);
    auto* close = Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("閉じる"), "primary");
    connect(close, &QPushButton::clicked, this, &Frm_QandA::reject);
    connect(Title, &Entry_Cell::Next_Field, Shitumon, [this] { Shitumon->setFocus(Qt::TabFocusReason); });
    resize(880, 520);
    Shitumon->setFocus();
}

Screen_Note Frm_QandA::Shown() const {
    return {Title->Bare_Text(), Shitumon->toPlainText().toStdString(), Advice->toPlainText().toStdString()};
}

bool Frm_QandA::May_Close() {
    // What the input method still composes belongs to the note.
    QGuiApplication::inputMethod()->commit();
    const Screen_Note note = Shown();
    if (note == stored) {
        return true;
    }
    return Save_Or_Stay(shell.session, [&] { Save_Note(shell.session, screen, note); }, {.what = "メモ"}) !=
           Save_End::Stay;
}

} // namespace morvane
