// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "app/gates.h"
#include "session/menu_state.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace morvane {

/// Which member of a screen family an entry opens.
enum class Form_Role : std::uint8_t {
    Fixed,          ///< the form that the entry names
    Statement,      ///< statement entry, by firm type
    Prior_Figures,  ///< prior-period figures, by firm type
    Journal,        ///< improvement journal, by firm type
    X2W_Entry,      ///< X2 and W, by law year
    X2W_Improved,   ///< the same of the improvement simulation
    X2W_Comparison, ///< the same of the prior-period comparison
    Own_Company     ///< company information, by installation mode
};

enum class Menu_Action : std::uint8_t { Open_Form, Open_Panel, Close_Panel, End };

/// One button of the menu: what it opens, what must be there before, and what is told on the way.
struct Menu_Entry {
    const char* name;    ///< Cmd_KsZ1, Cmd_KsT(0), ...
    const char* caption; ///< a run of blanks is where a narrow button breaks the line
    Menu_Action action = Menu_Action::Open_Form;
    const char* target = ""; ///< form or panel
    Form_Role role = Form_Role::Fixed;
    std::uint8_t screen_no = 0; ///< 0: left to the form
    const char* title = "";
    std::array<Gate, 3> gates{};
    const char* kojin_caption = nullptr; ///< for an individual, where it differs
    const char* multi_caption = nullptr; ///< in multi-company mode
    bool corporation_only = false;
    bool always = false; ///< enabled without a company in hand
};

/// A pop-out panel: opened by a main button, at most one screen of its entries at a time.
struct Menu_Panel {
    const char* name;
    const char* heading;
    std::optional<Sim_Mode> sim_mode; ///< on entering; none leaves it
    const char* sim_title;
    std::span<const Menu_Entry> entries;
    bool statements = false; ///< closing it forms the class totals anew
};

struct Menu_Group {
    const char* heading;
    std::span<const Menu_Entry> entries;
};

std::span<const Menu_Group> Menu_Groups();
std::span<const Menu_Panel> Menu_Panels();
const Menu_Panel& Panel_Of(std::string_view name);

/// The caption of an entry for the firm and the mode in hand.
std::string Caption_Of(const Menu_Entry& entry, const Session& session);

/// The caption of the statement of changes once a company was registered: data of the forms 1 and 2 have
/// 変動計算書, later ones 利益処分.
std::string Caption_After_Registration(const Session& session);

/// The form that an entry opens, by firm type, law year and mode.
std::string Form_Of(const Menu_Entry& entry, const Session& session);

/// Whether an entry can be used: most need a company, some a corporation.
bool Is_Enabled(const Menu_Entry& entry, const Session& session);

/// Takes mode and title of the simulation of a panel that opens. False where its gate refuses.
bool Enter_Panel(const Session& session, Menu_State& menu, const Menu_Entry& opener);

/// Takes what an entry opens: gates, number and title of the screen. False where a gate refuses; all is then
/// as it was. Raises Store_Error, Run_Time_Error.
bool Enter_Screen(const Session& session, Menu_State& menu, const Menu_Entry& entry);

/// The comparison with another firm: mode, title, gate. No button leads to it. False where the gate
/// refuses.
bool Enter_Other_Firm(const Session& session, Menu_State& menu);

} // namespace morvane
