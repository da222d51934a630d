#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QLabel>
#include <QStringView>
#include <QSvgRenderer>

#include <vector>

namespace mainwindow {

/// A text on a picture button. It takes clicks but, lying over the picture, hides the pointer's
/// moves from it.
class PictureLabel : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;

  Q_SIGNALS:
    void clicked();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool down_ = false;
};

/// A large button: a picture with one or two labels on it. It works by mouse and keyboard, and
/// tells a click on the picture itself apart from all other ways to press it.
class PictureButton : public QAbstractButton {
    Q_OBJECT
  public:
    /// @param picture resource path of an SVG drawing
    PictureButton(const QString& picture, std::vector<PictureLabel*> labels,
                  QWidget* parent = nullptr);

    void setColour(const QColor& colour);
    QColor colour() const { return colour_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The pointer moved over the picture.
    void pointerMoved();
    /// A mouse click on the picture; clicked() follows.
    void pictureClicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QRectF pictureRect() const;

    QSvgRenderer picture_;
    std::vector<PictureLabel*> labels_;
    QColor colour_;
};

} // namespace mainwindow
