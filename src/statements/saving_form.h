// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

#include <string>
#include <vector>

class QHBoxLayout;

namespace morvane {

class Entry_Grid;

/// What Canseru does with what was keyed, once its question was answered with Yes.
enum class On_Cancel { Throw_Away, Store_All_The_Same };

/// A screen of the statements: closing it stores what was keyed, and only Canseru, after a question, throws
/// it away, where the screen does. Where the store fails the screen stays with everything that was keyed.
class Saving_Form : public Form {
    Q_OBJECT

  public:
    /// `work` names in the question of Canseru what is being edited.
    Saving_Form(Shell_Port& shell_port, const QString& name, const QString& title, std::string work,
                On_Cancel what_canseru_does = On_Cancel::Throw_Away);

  protected:
    bool May_Close() override;

    /// Canseru: closes after a question.
    void Cancel() override;

    /// Stores what was keyed, unless `save` is false. Raises Store_Error.
    virtual void Store(bool save) = 0;

    /// Takes in a grid whose running entry belongs to what is stored.
    void Follow(Entry_Grid* grid);

    /// Adds Canseru and Tojiru at the right.
    void Add_Closing_Buttons();

    /// The line of unit and note over the fields. An empty note leaves the unit alone.
    QHBoxLayout* Add_Unit_Line(const QString& unit, const QString& note);

  private:
    std::string edited_work;
    On_Cancel on_cancel;
    std::vector<Entry_Grid*> grids;
    bool saving = true;
};

} // namespace morvane
