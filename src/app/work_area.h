// SPDX-FileCopyrightText: The Morvane developers
#pragma once

#include "widgets/form.h"

#include <QMdiArea>

namespace morvane {

/// The room of the frame for its child screens: each fills it, the newest lies on top. Without a screen it
/// shows a hint.
class Work_Area : public QMdiArea {
    Q_OBJECT

  public:
    Work_Area();

    /// Takes the form in and shows it.
    void Open(Form* form);

    /// Closes every screen by its cancel path, its check screens first; false where one stays open.
    bool Close_All();

    [[nodiscard]] QList<Form*> Forms() const;
    [[nodiscard]] Form* Top() const;

    void Set_Hint(const QString& text);

  Q_SIGNALS:
    void Opened();     ///< a screen has come
    void Resized();    ///< the frame has another size
    void All_Closed(); ///< the last screen has gone

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString hint;
};

} // namespace morvane
