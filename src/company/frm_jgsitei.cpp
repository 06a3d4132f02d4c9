// SPDX-FileCopyrightText: The Morvane developers
#include "company/frm_jgsitei.h"

#include "company/kana.h"
#include "widgets/entry_cell.h"
#include "widgets/record_list.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace morvane {

namespace {

constexpr List_Column list_columns[] = {{"事業所CD", 12, true}, {"事業所名"}};

// What counts as the same in a search: full width and half width, capitals, hiragana and katakana, older and
// common forms of a character.
QString Search_Form(const QString& text) {
    QString form = QString::fromStdString(Common_Kanji(text.toStdString()))
                       .normalized(QString::NormalizationForm_KC)
                       .toCaseFolded();
    for (QChar& c : form) {
        if (c >= u'ぁ' && c <= u'ゖ') {
            c = QChar(static_cast<char16_t>(c.unicode() + (u'ァ' - u'ぁ')));
        }
    }
    return form;
}

QString Words_Of(const Register_Row& row) {
    return Search_Form(QString::number(row.number) + u'\n' + QString::fromStdString(row.name) + u'\n' +
                       QString::fromStdString(row.kana));
}

QPushButton* Kana_Button(const char* name, const char* caption, const QString& what, QButtonGroup& group) {
    auto* button = new QPushButton(QString::fromUtf8(caption));
    button->setObjectName(QString::fromUtf8(name));
    button->setAccessibleName(what);
    button->setToolTip(what);
    button->setCheckable(true);
    button->setAutoDefault(false);
    theme::Set_Look(button, "kana");
    group.addButton(button);
    return button;
}

} // namespace

Frm_JGSitei::Frm_JGSitei(Shell_Port& shell_port)
    : Form(shell_port, QStringLiteral("Frm_JGSitei"), QStringLiteral("事業所登録・指定")),
      list(new Record_List(list_columns)), count(new QLabel), search(new Entry_Cell(Entry_Kind::Text)) {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    Build_List(*row);
    Build_Kana_Table(*row);
    body->addLayout(row, 1);
    Build_Buttons();
    setTabOrder(search, list);
    resize(820, 620);
    Show_In_Hand();
    Load_List();
    list->setFocus();
}

void Frm_JGSitei::Show_In_Hand() {
    const Session& session = shell.session;
    Set_Sub_Title(session.Kanri_No == 0 ? QString()
                                        : QStringLiteral("指定中：%1　%2")
                                              .arg(session.Kanri_No)
                                              .arg(QString::fromStdString(session.Jigyo_Name)));
}

void Frm_JGSitei::Build_List(QBoxLayout& place) {
    auto* box = new Section_Box(QStringLiteral("事業所一覧"));
    list->setObjectName(QStringLiteral("ListView"));
    list->setAccessibleName(QStringLiteral("事業所一覧"));
    list->Set_Find_Column(0);
    count->setObjectName(QStringLiteral("Lbl_Kensu"));
    theme::Set_Look(count, "muted");
    Build_Search(*box->body);
    box->body->addWidget(list, 1);
    box->body->addWidget(count);
    place.addWidget(box, 1);
    Wire(list, &Record_List::Row_Opened, [this] { Take(); });
}

// Narrows the list while it is typed; several words must all be there.
void Frm_JGSitei::Build_Search(QBoxLayout& place) {
    search->setObjectName(QStringLiteral("Txt_Kensaku"));
    search->setAccessibleName(QStringLiteral("事業所の検索"));
    search->setPlaceholderText(QStringLiteral("検索：番号、事業所名、カナの一部"));
    place.addWidget(search);
    connect(search, &Entry_Cell::textChanged, this, [this] { Show_Found(); });
    connect(search, &Entry_Cell::Next_Field, this, [this] { Go_To_List(); });
}

void Frm_JGSitei::Build_Kana_Table(QBoxLayout& place) {
    auto* box = new Section_Box(QStringLiteral("カナ頭文字"));
    auto* group = new QButtonGroup(this);
    auto* grid = new QGridLayout;
    grid->setSpacing(theme::grid);
    for (const Kana_Filter& initial : Kana_Filters()) {
        QPushButton* button = Kana_Button(
            initial.button, initial.caption,
            QStringLiteral("「%1」で始まる事業所").arg(QString::fromUtf8(initial.caption)), *group);
        grid->addWidget(button, initial.row, initial.column);
        Wire(button, &QPushButton::clicked, [this, &initial] {
            filter = initial.kana;
            Load_List();
        });
    }
    QPushButton* all = Kana_Button("FgZen", "全件", QStringLiteral("すべての事業所"), *group);
    all->setChecked(true);
    Wire(all, &QPushButton::clicked, [this] {
        filter.clear();
        Load_List();
    });
    box->body->addWidget(all);
    box->body->addLayout(grid);
    box->body->addStretch(1);
    place.addWidget(box);
}

void Frm_JGSitei::Build_Buttons() {
    Add_Help_Button();
    Wire(Add_Button(QStringLiteral("Cmd_Del"), QStringLiteral("事業所削除"), nullptr, true),
         &QPushButton::clicked, [this] { Delete(); });
    Wire(Add_Button(QStringLiteral("Cmd_New"), QStringLiteral("新規登録")), &QPushButton::clicked,
         [this] { Register_New(); });
    Wire(Add_Button(QStringLiteral("Cmd_Sitei"), QStringLiteral("事業所指定"), "primary"),
         &QPushButton::clicked, [this] { Take(); });
    connect(Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("キャンセル")), &QPushButton::clicked,
            this, [this] { reject(); });
}

void Frm_JGSitei::Load_List() {
    companies.clear();
    for (Register_Row& row : Read_Register(shell.session, filter)) {
        QString words = Words_Of(row);
        companies.push_back({std::move(row), std::move(words)});
    }
    Show_Found();
}

void Frm_JGSitei::Show_Found() {
    const QStringList words = Search_Form(search->text()).split(u' ', Qt::SkipEmptyParts);
    found.clear();
    int in_hand = -1;
    for (std::size_t at = 0; at < companies.size(); ++at) {
        const bool fits = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return companies[at].words.contains(word);
        });
        if (fits) {
            const std::int32_t number = companies[at].row.number;
            if (shell.session.Kanri_No != 0 && number == shell.session.Kanri_No) {
                in_hand = static_cast<int>(found.size());
            }
            found.push_back(at);
        }
    }
    list->Set_Empty_Text(filter.empty() && words.isEmpty()
                             ? QStringLiteral("事業所が登録されていません。\n"
                                              "［新規登録］で登録してください。")
                             : QStringLiteral("該当する事業所がありません。"));
    list->Set_Source(found.size(), [this](int row, int column) {
        const Register_Row& company = companies[found[static_cast<std::size_t>(row)]].row;
        return column == 0 ? QString::number(company.number) : QString::fromStdString(company.name);
    });
    if (in_hand >= 0) {
        list->Set_Marked_Row(in_hand);
        list->Show_Row(in_hand);
    }
    count->setText(QStringLiteral("%1 件").arg(QLocale().toString(static_cast<int>(found.size()))));
}

void Frm_JGSitei::Go_To_List() {
    list->setFocus(Qt::TabFocusReason);
    if (list->Selected_Row() < 0 && list->Row_Count() > 0) {
        list->Select_Row(0);
    }
}

void Frm_JGSitei::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && focusWidget() == search) {
        Go_To_List();
        return;
    }
    Form::keyPressEvent(event);
}

std::optional<Register_Row> Frm_JGSitei::Chosen() const {
    const int row = list->Selected_Row();
    return row < 0 ? std::nullopt : std::optional(companies[found[static_cast<std::size_t>(row)]].row);
}

void Frm_JGSitei::Take() {
    const Taken taken = Take_Company(shell.session, Chosen());
    if (taken == Taken::Refused) {
        return;
    }
    shell.Show_Company();
    Show_In_Hand();
    if (taken == Taken::In_Hand) {
        Close_Form();
    }
}

void Frm_JGSitei::Register_New() {
    Session& session = shell.session;
    Start_New_Company(session);
    shell.Show_No_Company();
    Set_Sub_Title({});
    session.Jg_New_Flg = true;
    shell.Open_Form(QStringLiteral("Frm_JgNew"));
    session.Jg_New_Flg = false;
    if (session.Kanri_No != 0) {
        Close_Form();
    } else {
        Load_List();
    }
}

// The list is right before the finish is told, and stays where the company was.
void Frm_JGSitei::Delete() {
    const int row = list->Selected_Row();
    Delete_Company(shell.session, Chosen(), [this, row] {
        Load_List();
        if (list->Row_Count() > 0) {
            list->Show_Row(std::min(row, list->Row_Count() - 1));
        }
    });
}

} // namespace morvane
