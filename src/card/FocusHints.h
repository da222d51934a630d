#pragma once

#include <QObject>
#include <QString>

class QLabel;
class QWidget;

namespace card {

/// Has it told, to a screen reader too, that the field must not stay empty.
void markMandatory(QWidget& field);
bool isMandatory(const QWidget& field);
/// Has it told that a drop-down stands beside the field.
void markPick(QWidget& field);
/// Has it told that PageUp and PageDown lead to the button, while it can be pressed.
void markPageKeys(QWidget& field, const QString& button);

/// Keeps a line of a window telling what the keys do where the focus is.
class FocusHints : public QObject {
    Q_OBJECT
  public:
    /// @param line lies in the window
    explicit FocusHints(QLabel& line, QObject* parent = nullptr);

    /// What holds wherever the focus is: told behind the rest, or before it.
    void setEverywhere(const QString& before, const QString& behind);

  private:
    void show();

    QLabel& line_;
    QString before_;
    QString behind_;
};

} // namespace card
