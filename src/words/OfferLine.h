#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace words {

/// A line above a screen that offers kept words. It takes no focus and holds nobody up: it is
/// answered by Alt+L and Alt+H or by the mouse, or left where it is. Screen readers are told of it.
class OfferLine : public QFrame {
    Q_OBJECT
  public:
    explicit OfferLine(QWidget* parent);

    /// What the first of the two buttons does with the words.
    enum class Way { IntoFields, AsText };
    void offer(const QString& text, Way way);
    /// Without a question.
    void tell(const QString& text);

  Q_SIGNALS:
    void taken();
    void refused();

  private:
    void show(const QString& text, bool asks);

    QLabel* lblSlova_;
    QPushButton* cmdVratitSlova_;
    QPushButton* cmdZahoditSlova_;
};

} // namespace words
