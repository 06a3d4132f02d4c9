// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include <QColor>
#include <QFrame>
#include <map>
#include <span>
#include <string>
#include <vector>

class QHBoxLayout;
class QLabel;

namespace morvane {

/// One figure of a Result_Strip.
struct Result_Figure {
    std::string name; ///< objectName of what shows it
    std::string caption = {};
    bool strong = false;          ///< the score that the screen is for
    bool joined = false;          ///< belongs to the figure before it
    const char* widest = "0,000"; ///< has room in any case; of two lines it is in small letters
};

/// The scores that an entry changes, in one line beside what scrolls, so that they stay in view: what they
/// belong to, or a hint on the field in entry, then captions and figures in groups.
class Result_Strip : public QFrame {
    Q_OBJECT

  public:
    /// `Hint` has room for two small lines, `Name` for one.
    enum class Subject { Name, Hint };

    explicit Result_Strip(std::span<const Result_Figure> figures, Subject subject = Subject::Name);

    /// What the figures belong to ("土木一式"), or the hint; empty shows none.
    void Set_Subject(const QString& subject);

    /// Sets what has a caption in the same columns of two strips under each other, or gives that up.
    static void Align(Result_Strip& one, Result_Strip& other, bool aligned);

    /// Shows a figure as text. Raises std::out_of_range for a name that the strip does not have.
    void Set_Text(const std::string& name, const QString& text);

    /// Shows a figure in a colour. Raises std::out_of_range in the same way.
    void Set_Colour(const std::string& name, QRgb colour);

  private:
    struct Placed {
        QLabel* caption;
        QLabel* figure;
        int least; ///< width of the figure, pixels
    };
    struct Group {
        QWidget* frame;
        QHBoxLayout* row;
        std::vector<Placed> figures;
    };

    void Open_Group(QHBoxLayout& line);
    void Add_Figure(const Result_Figure& figure);

    QLabel* subject_label;
    std::vector<Group> groups;
    std::map<std::string, QLabel*> by_name;
};

} // namespace morvane
