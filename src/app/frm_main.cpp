// SPDX-FileCopyrightText: The Morvane developers
#include "app/frm_main.h"

#include "maint/data_conv.h"
#include "session/boxes.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QProcess>
#include <QStandardPaths>

namespace morvane {

namespace {

// The calculators of the common desktops, the first that is there.
void Start_Calculator() {
    for (const char* program : {"gnome-calculator", "kcalc", "mate-calc", "qalculate-gtk", "galculator",
                                "deepin-calculator", "xcalc"}) {
        const QString path = QStandardPaths::findExecutable(QString::fromLatin1(program));
        if (!path.isEmpty() && QProcess::startDetached(path, {})) {
            return;
        }
    }
}

} // namespace

Frm_Main::Frm_Main(Shell_Port& shell_port, Hooks the_hooks)
    : area(new Work_Area), shell(shell_port), hooks(std::move(the_hooks)) {
    setObjectName(QStringLiteral("Frm_Main"));
    setWindowTitle(shell.session.Is_Multi() ? QStringLiteral("MorvanePlus") : QStringLiteral("Morvane"));
    command = new Frm_Command(shell, *area, [this] { hooks.normal_end(); });
    auto* centre = new QWidget;
    auto* row = new QHBoxLayout(centre);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(command);
    row->addWidget(area, 1);
    setCentralWidget(centre);
    Make_Menu_Bar();
    setMinimumSize(640, 360);
}

void Frm_Main::Make_Menu_Bar() {
    Add_Entry("Disp_Version", "ﾊﾞｰｼﾞｮﾝ情報", [this] { shell.Open_Form(QStringLiteral("Frm_Ver")); });
    Add_Entry("Help_Dsp", "ﾍﾙﾌﾟ", [this] { hooks.send_f1(focusWidget()); });
    Add_Entry("Dentaku", "電卓", Start_Calculator);
    Add_Entry("Mnu_Toi", "問い合わせ", [this] { shell.Open_Form(QStringLiteral("Frm_ToiSend")); });
    Add_Entry("Mnu_HPAccess", "「Morvane」HPｱｸｾｽ", [this] { shell.Open_Form(QStringLiteral("Frm_HpOpen")); });
    QAction* companies = Add_Entry("Mnu_JgSitei", "事業所登録・指定", [this] {
        Refuse_While_Editing([this] { shell.Open_Form(QStringLiteral("Frm_JGSitei")); });
    });
    companies->setVisible(shell.session.Is_Multi());
    Add_Entry("Mnu_Dt2015", "データ変換（2012→2015）", [this] {
        Refuse_While_Editing([this] {
            if (!shell.session.Is_Multi() || shell.session.Kanri_No != 0) {
                Mnu_Dt2015(shell.session);
            }
        });
    });
}

QAction* Frm_Main::Add_Entry(const char* name, const char* caption, const std::function<void()>& work) {
    QAction* action = menuBar()->addAction(QString::fromUtf8(caption));
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, [this, work] { shell.Guard(work); });
    return action;
}

void Frm_Main::Refuse_While_Editing(const std::function<void()>& work) {
    if (shell.session.Edit_Flg) {
        Tell(shell.session, "Morvane", "編集中の画面を閉じてから実行して下さい。");
        return;
    }
    work();
}

void Frm_Main::Close_For_Good() {
    for_good = true;
    close();
}

void Frm_Main::closeEvent(QCloseEvent* event) {
    event->setAccepted(for_good || hooks.may_close());
}

} // namespace morvane
