#pragma once

#include <QLabel>

namespace forms {

/// A line of keys and what they do, parted by dots. Where there is no room for all of them it shows
/// the first ones; the tool tip has them all.
class KeyHint : public QLabel {
    Q_OBJECT
  public:
    explicit KeyHint(QWidget* parent = nullptr);
    explicit KeyHint(const QString& keys, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString fitting() const;
};

} // namespace forms
