// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "review/scenario.h"
#include "widgets/form.h"

#include <functional>
#include <vector>

class QGridLayout;

namespace morvane {

struct Copy_Boxes;

/// "改善後複写 保存･呼出": copies between the figures before and after the improvement, saves the latter as
/// one of three and recalls it. Beside each button stands what the figures come to that it replaces or
/// brings. Modal.
class Frm_KzCopy : public Form {
  public:
    /// Raises Store_Error.
    explicit Frm_KzCopy(Shell_Port& shell_port);

  private:
    /// A button with what stands beside it.
    struct Action {
        QPushButton* button;
        QLabel* result;
        QString caption;
        QString of; ///< whose figures those are, where the caption does not say it
        Scenario scenario;
    };

    template <class Work>
    void Add_Action(QGridLayout& place, const QString& name, const QString& caption, Scenario shown,
                    const QString& of, Work work);
    void Show_Results();

    /// Asks, copies, says that it is done. A copy that fails changed nothing.
    void Ask_And_Copy(const Copy_Boxes& boxes, const std::function<void()>& copy);
    void Load(Scenario slot);
    void Print();

    std::vector<Action> actions;
};

} // namespace morvane
