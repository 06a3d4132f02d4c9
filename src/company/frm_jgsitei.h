// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/register.h"
#include "widgets/form.h"

class QBoxLayout;

namespace morvane {

class Record_List;

/// "事業所登録・指定": the register of companies with its kana initials; takes a company in hand, registers a
/// new one, deletes one. Modal, in multi-company mode only.
class Frm_JGSitei : public Form {
  public:
    explicit Frm_JGSitei(Shell_Port& shell_port);

  private:
    void Build_List(QBoxLayout& place);
    void Build_Kana_Table(QBoxLayout& place);
    void Build_Buttons();

    void Show_In_Hand();
    void Load_List();
    [[nodiscard]] std::optional<Register_Row> Chosen() const;
    void Take();
    void Register_New();
    void Delete();

    Record_List* list;
    QLabel* count;
    std::vector<Register_Row> rows;
    std::string filter; ///< empty: no filter applies
};

} // namespace morvane
