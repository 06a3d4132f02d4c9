// SPDX-FileCopyrightText: The Morvane developers
#include "company/frm_jgnew.h"

#include "company/company_save.h"
#include "company/kana.h"
#include "session/boxes.h"
#include "widgets/field_form.h"
#include "widgets/section_box.h"
#include "widgets/theme.h"
#include "widgets/window_placement.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace morvane {

namespace {

using Outcome = Save_Result::Outcome;

/// Where a field stands in its section.
struct Place {
    const char* control;
    const char* caption; ///< null: behind the field before it
    int width;           ///< in half-width characters
    const char* before = "";
};

constexpr Place places[] = {
    {"JigyoCD", "事業所番号", 10},
    {"SyaMei", "事業所名", 60},
    {"SyaKana", "事業所カナ名", 30},
    {"Daihyo_Yaku", "代表者役職", 24},
    {"Daihyo", nullptr, 24, "　代表者名"},
    {"Yu1", "郵便番号", 3},
    {"Yu2", nullptr, 4, "－"},
    {"Syozai", "所在地", 72},
    {"Bilmei", "ビル名", 48},
    {"Tel", "電話番号", 18},
    {"Fax", nullptr, 18, "　FAX番号"},
    {"EMail", "E-Mail", 48},
    {"Tanto", "担当者名", 24},
    {"Ks_ki", "決算期", 5, "第"},
    {"Ksnen_St", "決算期間", 3, "自"},
    {"KsTuki_St", nullptr, 3},
    {"KsHi_St", nullptr, 3},
    {"Ksnen_Ed", nullptr, 3, "　～　至"},
    {"KsTuki_Ed", nullptr, 3},
    {"KsHi_Ed", nullptr, 3},
    {"HoKo", "法人・個人", 2},
};

constexpr std::pair<Company_Section, const char*> sections[] = {{Company_Section::Company, "事業所"},
                                                                {Company_Section::Address, "所在地・連絡先"},
                                                                {Company_Section::Period, "決算期"},
                                                                {Company_Section::Kind, "区分"}};

struct Unit {
    const char* name;
    const char* caption;
};
constexpr std::array<Unit, 3> units = {{{"En", "円"}, {"Sen", "千円"}, {"Hyaku", "百万円"}}};

Entry_Kind Kind_Of(const Company_Field& field) {
    switch (field.entry) {
    case Company_Field::Entry::Digits:
        return Entry_Kind::Digits;
    case Company_Field::Entry::Choice:
        return Entry_Kind::Choice;
    case Company_Field::Entry::Text:
        break;
    }
    return Entry_Kind::Text;
}

std::vector<Field> Fields_Of(Company_Section section, Company_Screen screen) {
    std::vector<Field> made;
    for (const Place& place : places) {
        const auto fields = Company_Fields();
        const auto field = std::find_if(fields.begin(), fields.end(), [&](const Company_Field& candidate) {
            return std::string_view(candidate.control) == place.control;
        });
        if (field->section == section && Is_On(screen, *field)) {
            made.push_back({.name = field->control,
                            .caption = place.caption,
                            .kind = Kind_Of(*field),
                            .max_length = field->max_length,
                            .width = place.width,
                            .before = place.before,
                            .hint = field->hint,
                            .choices = "12",
                            .label = field->caption});
        }
    }
    return made;
}

/// Both screens of a company's master data.
class Frm_Company : public Form {
  public:
    Frm_Company(Shell_Port& shell_port, Company_Screen the_screen, const char* name, const char* title)
        : Form(shell_port, QString::fromUtf8(name), QString::fromUtf8(title)), screen(the_screen) {
        auto* last_line = new QBoxLayout(Is_Narrow_Display(shell.Window()) ? QBoxLayout::TopToBottom
                                                                           : QBoxLayout::LeftToRight);
        last_line->setSpacing(theme::panel_gap);
        for (const auto& [section, heading] : sections) {
            auto* box = new Section_Box(QString::fromUtf8(heading));
            auto* form = new Field_Form(Fields_Of(section, screen));
            box->body->addWidget(form);
            box->body->addStretch(1);
            forms.push_back(form);
            connect(form, &Field_Form::Cell_Left, this, [this](const QString& cell) { Cell_Left(cell); });
            if (section == Company_Section::Period || section == Company_Section::Kind) {
                last_line->addWidget(box, section == Company_Section::Period ? 1 : 0);
            } else {
                body->addWidget(box);
            }
        }
        body->addLayout(last_line);
        if (screen == Company_Screen::Jgmas) {
            Build_Units();
        }
        Align_Captions();
        body->addStretch(1);
        QPushButton* help = Add_Help_Button();
        QPushButton* excute = Add_Button(QStringLiteral("Cmd_Excute"), QStringLiteral("保存終了"), "primary");
        QPushButton* cancel = Add_Button(QStringLiteral("Cmd_Cancel"), QStringLiteral("キャンセル"));
        Wire(excute, &QPushButton::clicked, [this] { Save(); });
        connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
        // Whoever keys with Enter comes from the last entry to 保存終了.
        setTabOrder(cancel, help);
        loaded = Load_Company(shell.session, screen);
        Show_Entry(loaded);
        forms.front()->Focus(screen == Company_Screen::Jg_New ? "JigyoCD" : "SyaMei");
    }

  protected:
    bool May_Close() override {
        if (Entry() == loaded) {
            return true;
        }
        const std::string what = screen == Company_Screen::Jg_New
                                     ? "編集中の事業所情報を保存せずに終了します。"
                                     : "編集中の自社情報を保存せずに終了します。";
        return Ask(shell.session, "編集破棄確認", what + "\nよろしいですか？");
    }

  private:
    void Build_Units() {
        auto* row = new QWidget;
        auto* line = new QHBoxLayout(row);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(16);
        for (std::size_t i = 0; i < units.size(); ++i) {
            auto* option = new QRadioButton(QString::fromUtf8(units.at(i).caption));
            option->setObjectName(QString::fromUtf8(units.at(i).name));
            option->setAccessibleName(QStringLiteral("処理単位 %1").arg(option->text()));
            line->addWidget(option);
            unit_options.addButton(option, static_cast<int>(i) + 1);
        }
        forms.back()->Add_Line(QStringLiteral("処理単位"), row);
    }

    /// The captions of the sections that stand above each other have one width.
    void Align_Captions() {
        int width = 0;
        for (std::size_t i = 0; i + 1 < forms.size(); ++i) {
            width = std::max(width, forms[i]->Caption_Width());
        }
        for (std::size_t i = 0; i + 1 < forms.size(); ++i) {
            forms[i]->Set_Caption_Width(width);
        }
    }

    [[nodiscard]] Field_Form& Form_With(const std::string& control) const {
        return **std::find_if(forms.begin(), forms.end(),
                              [&](const Field_Form* form) { return form->Has(control); });
    }

    [[nodiscard]] Company_Entry Entry() const {
        Company_Entry entry;
        for (const Field_Form* form : forms) {
            entry.texts.merge(form->Texts());
        }
        entry.tani = static_cast<std::int16_t>(std::max(unit_options.checkedId(), 0));
        return entry;
    }

    void Show_Entry(const Company_Entry& entry) {
        for (const auto& [control, text] : entry.texts) {
            const Field_Form& form = Form_With(control);
            if (form.Text(control) != text) {
                form.Set_Text(control, text);
            }
        }
        if (QAbstractButton* option = unit_options.button(entry.tani)) {
            option->setChecked(true);
        }
    }

    void Focus(const std::string& control) const {
        if (const auto form =
                std::find_if(forms.begin(), forms.end(),
                             [&](const Field_Form* candidate) { return candidate->Has(control); });
            form != forms.end()) {
            (*form)->Focus(control);
        } else if (auto* option = findChild<QWidget*>(QString::fromStdString(control))) {
            option->setFocus(Qt::OtherFocusReason);
        }
    }

    void Cell_Left(const QString& cell) {
        if (cell == QLatin1String("SyaKana")) {
            const Field_Form& form = Form_With("SyaKana");
            form.Set_Text("SyaKana", Half_Width_Kana(form.Text("SyaKana")));
        }
        if (cell == QLatin1String("Ks_ki") && screen == Company_Screen::Jgmas) {
            // Behind the event that took the focus away: a question must not stand in the middle of a click.
            QTimer::singleShot(0, this, [this] { shell.Guard([this] { Period_Left(); }); });
        }
    }

    /// The periods are renumbered as soon as the field is left, except for a button: saving asks by itself,
    /// and who gives up is not asked.
    void Period_Left() {
        const QWidget* now = focusWidget();
        if (!isVisible() || in_question || now == nullptr || now == &Form_With("Ks_ki").Cell("Ks_ki") ||
            qobject_cast<const QPushButton*>(now) != nullptr) {
            return;
        }
        in_question = true;
        Company_Entry entry = Entry();
        const std::int16_t before = shell.session.Syori_Ki;
        const Save_Result result = Leave_Period(shell.session, entry);
        in_question = false;
        Show_Entry(entry);
        if (result.outcome == Outcome::Discarded) {
            Close_Form();
        } else if (result.outcome != Outcome::Saved) {
            Focus("Ks_ki");
        } else if (shell.session.Syori_Ki != before) {
            loaded = Load_Company(shell.session, screen);
            shell.Show_Company();
        }
    }

    void Save() {
        Company_Entry entry = Entry();
        const Save_Result result = Save_Company(shell.session, screen, entry);
        Show_Entry(entry);
        if (result.outcome == Outcome::Saved) {
            shell.Show_Company();
            Close_Form();
        } else if (result.outcome == Outcome::Registered) {
            shell.Show_Registered();
            Close_Form();
        } else if (result.outcome == Outcome::Discarded) {
            Close_Form();
        } else if (!result.focus.empty()) {
            Focus(result.focus);
        }
    }

    Company_Screen screen;
    std::vector<Field_Form*> forms;
    QButtonGroup unit_options;
    Company_Entry loaded;
    bool in_question = false;
};

} // namespace

Form* Make_Frm_JgNew(Shell_Port& shell) {
    return new Frm_Company(shell, Company_Screen::Jg_New, "Frm_JgNew",
                           shell.session.Jg_New_Flg ? "事業所新規登録" : "事業所情報編集");
}

Form* Make_Frm_Jgmas(Shell_Port& shell) {
    return new Frm_Company(shell, Company_Screen::Jgmas, "Frm_Jgmas", "自社情報");
}

} // namespace morvane
