// SPDX-FileCopyrightText: The Morvane developers
#include "company/frm_jgsitei.h"

#include "widgets/record_list.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace morvane {

namespace {

constexpr List_Column list_columns[] = {{"事業所CD", 12, true}, {"事業所名"}};

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
      list(new Record_List(list_columns)), count(new QLabel) {
    auto* row = new QHBoxLayout;
    row->setSpacing(theme::panel_gap);
    Build_List(*row);
    Build_Kana_Table(*row);
    body->addLayout(row, 1);
    Build_Buttons();
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
    box->body->addWidget(list, 1);
    box->body->addWidget(count);
    place.addWidget(box, 1);
    Wire(list, &Record_List::Row_Opened, [this] { Take(); });
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
            filter = Filter_Text(initial);
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
    rows = Read_Register(shell.session, filter);
    list->Set_Empty_Text(filter.empty() ? QStringLiteral("事業所が登録されていません。\n"
                                                         "［新規登録］で登録してください。")
                                        : QStringLiteral("該当する事業所がありません。"));
    list->Set_Source(rows.size(), [this](int row, int column) {
        const Register_Row& company = rows[static_cast<std::size_t>(row)];
        return column == 0 ? QString::number(company.number) : QString::fromStdString(company.name);
    });
    count->setText(QStringLiteral("%1 件").arg(QLocale().toString(static_cast<int>(rows.size()))));
}

std::optional<Register_Row> Frm_JGSitei::Chosen() const {
    const int row = list->Selected_Row();
    return row < 0 ? std::nullopt : std::optional(rows[static_cast<std::size_t>(row)]);
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

void Frm_JGSitei::Delete() {
    if (Delete_Company(shell.session, Chosen())) {
        Load_List();
    }
}

} // namespace morvane
