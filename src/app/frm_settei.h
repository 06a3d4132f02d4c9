// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/field_form.h"
#include "widgets/form.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace morvane {

/// A host of the settings and whether it answered.
struct Tested_Host {
    std::string caption;
    std::string address; ///< host or host:port
    bool reached = false;
};

/// 事務所・通信設定: the office and how the installation is used; mail servers, hosts and addresses. Saved
/// into its settings file. A change of use ends the program, whose session is one of the former use.
class Frm_Settei : public Form {
  public:
    explicit Frm_Settei(Shell_Port& shell_port);

    std::function<void()> end_program; ///< leaves every event loop; tests put their own

  protected:
    bool May_Close() override;

  private:
    void Load();
    void Save();
    void Test_Connections();
    void Show_Connections(const std::vector<Tested_Host>& tested);
    [[nodiscard]] std::map<std::string, std::string> Texts() const;
    [[nodiscard]] bool Is_Edited() const;
    [[nodiscard]] bool Entries_Hold();
    [[nodiscard]] bool May_Change_Mode(bool to_multi);
    void Store(const std::map<std::string, std::string>& texts);

    std::vector<Field_Form*> groups;
};

} // namespace morvane
