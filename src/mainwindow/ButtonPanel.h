#pragma once

#include "mainwindow/ButtonColours.h"
#include "mainwindow/PictureButton.h"

#include <QFrame>

#include <array>

namespace mainwindow {

/// The frame with the six picture buttons: their looks, their tips and the colours that follow the
/// pointer. What a button does is its window's affair.
class ButtonPanel : public QFrame {
    Q_OBJECT
  public:
    explicit ButtonPanel(QWidget* parent = nullptr);

    /// Back to the colours after a load.
    void resetColours();
    /// Changes the colours by one of the actions of ButtonColours.
    template <typename... Arguments, typename... Given>
    void change(void (ButtonColours::*action)(Arguments...), Given... given) {
        (colours_.*action)(given...);
        showColours();
    }
    PictureButton* button(int number) const { return buttons_.at(static_cast<size_t>(number - 1)); }
    QString schoolYear() const { return lblSkolskyRok_->text(); }
    void setSchoolYear(const QString& year);

  Q_SIGNALS:
    /// A button was pressed, on any of its parts or by a key.
    void chosen(int button);

  private:
    void addButton(int number);
    void showColours();

    ButtonColours colours_;
    std::array<PictureButton*, ButtonColours::buttons> buttons_{};
    QLabel* lblSkolskyRok_ = nullptr;
};

} // namespace mainwindow
