// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "company/register.h"
#include "widgets/form.h"

#include <QString>

class QBoxLayout;

namespace morvane {

class Entry_Cell;
class Record_List;

/// "事業所登録・指定": the register of companies with its kana initials; takes a company in hand, registers a
/// new one, deletes one. Modal, in multi-company mode only.
class Frm_JGSitei : public Form {
  public:
    explicit Frm_JGSitei(Shell_Port& shell_port);

  protected:
    /// Down goes from the search into the list.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// A company with what a search looks through.
    struct Listed {
        Register_Row row;
        QString words;
    };

    void Build_Search(QBoxLayout& place);
    void Build_List(QBoxLayout& place);
    void Build_Kana_Table(QBoxLayout& place);
    void Build_Buttons();

    void Show_In_Hand();
    void Load_List();
    void Show_Found();
    void Go_To_List();
    [[nodiscard]] std::optional<Register_Row> Chosen() const;
    void Take();
    void Register_New();
    void Delete();

    Record_List* list;
    QLabel* count;
    Entry_Cell* search;
    std::vector<Listed> companies;  ///< of the kana initial
    std::vector<std::size_t> found; ///< those of them that are listed
    std::string filter;             ///< a kana initial; empty: no filter applies
};

} // namespace morvane
