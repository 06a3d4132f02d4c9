// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "screens/keiei.h"
#include "widgets/shell_port.h"

#include <QObject>
#include <functional>
#include <vector>

namespace morvane {

class Entry_Cell;
class Total_Panel;

/// The name and the elements of another firm, keyed beside those of the own one, in the second column of the
/// panel of elements. Nothing of them is stored.
class Other_Firm_Entry : public QObject {
    Q_OBJECT

  public:
    /// Puts the cells into the panel: their names by those of the two columns. `show_firm` is told of the
    /// elements at every key and may raise Run_Time_Error where they cannot be computed; what was keyed is
    /// then taken back when its cell is left.
    Other_Firm_Entry(Shell_Port& shell, Total_Panel& panel, const Keiei_Names& own, const Keiei_Names& other,
                     std::function<void(const Y_Elements&)> show_firm);

    [[nodiscard]] Entry_Cell* First() const { return cells.front(); }

  private:
    [[nodiscard]] Y_Elements With_Entry(std::size_t element) const;
    void Try(std::size_t element);
    void Take(std::size_t element);

    const std::function<void(const Y_Elements&)> show;
    Y_Elements taken{};
    std::vector<Entry_Cell*> cells; ///< by y_element::Place
};

} // namespace morvane
