// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/field_form.h"
#include "widgets/form.h"

#include <map>
#include <string>
#include <vector>

namespace morvane {

/// 通信設定: mail servers, hosts and addresses of the installation. Saved into its settings file.
class Frm_Settei : public Form {
  public:
    explicit Frm_Settei(Shell_Port& shell_port);

  protected:
    bool May_Close() override;

  private:
    void Load();
    void Save();
    void Test_Connections();
    void Show_Connections(const std::vector<std::string>& lines, bool all_reached);
    [[nodiscard]] std::map<std::string, std::string> Texts() const;
    [[nodiscard]] bool Is_Edited() const;
    [[nodiscard]] bool Entries_Hold();

    std::vector<Field_Form*> groups;
    QPushButton* test_button;
};

} // namespace morvane
