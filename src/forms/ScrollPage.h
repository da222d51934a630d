#pragma once

#include <QScrollArea>

namespace forms {

/// A page that scrolls when it gets less room than it needs, without a frame of its own. What takes
/// the focus comes into sight.
class ScrollPage : public QScrollArea {
    Q_OBJECT
  public:
    /// @param page is owned from now on
    explicit ScrollPage(QWidget* page, QWidget* parent = nullptr);
    ~ScrollPage() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// At which nothing of the page has to be scrolled to, in its present width.
    int fullHeight() const;

  Q_SIGNALS:
    void resized();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showFocus(const QWidget* now);
};

} // namespace forms
