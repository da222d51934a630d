#include "mainwindow/PictureButton.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace mainwindow {

namespace {

constexpr int pictureSize = 52;
constexpr int leastPicture = 16;
constexpr int padding = 7;
constexpr int gap = 3;
constexpr qreal roundness = 7;
constexpr QColor outline(104, 104, 164);
constexpr QColor focusOutline(60, 60, 136);

} // namespace

void PictureLabel::mousePressEvent(QMouseEvent* event) {
    down_ = event->button() == Qt::LeftButton;
}

void PictureLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (down_ && rect().contains(event->pos()))
        Q_EMIT clicked();
    down_ = false;
}

PictureButton::PictureButton(const QString& picture, std::vector<PictureLabel*> labels,
                             QWidget* parent)
    : QAbstractButton(parent), picture_(picture), labels_(std::move(labels)) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(1);
    layout->addStretch();
    layout->addSpacerItem(
        new QSpacerItem(0, pictureSize + gap, QSizePolicy::Minimum, QSizePolicy::Preferred));
    for (PictureLabel* label : labels_) {
        label->setAttribute(Qt::WA_NoMousePropagation);
        label->setBackgroundRole(QPalette::Window);
        label->setAutoFillBackground(true);
        layout->addWidget(label, 0, Qt::AlignHCenter);
        connect(label, &PictureLabel::clicked, this, [this] { click(); });
    }
    layout->addStretch();
}

void PictureButton::setColour(const QColor& colour) {
    colour_ = colour;
    for (PictureLabel* label : labels_) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::Window, colour);
        label->setPalette(palette);
    }
    update();
}

QSize PictureButton::sizeHint() const {
    const QSize texts = layout()->sizeHint();
    return {std::max(texts.width(), pictureSize + 2 * padding), texts.height()};
}

QSize PictureButton::minimumSizeHint() const {
    return sizeHint() - QSize(0, pictureSize - leastPicture);
}

/// Above the labels; on a low screen it is smaller.
QRectF PictureButton::pictureRect() const {
    const int bottom = labels_.front()->y() - gap;
    const int size = std::clamp(bottom - padding, leastPicture, pictureSize);
    return {(width() - size) / 2.0, qreal(bottom - size), qreal(size), qreal(size)};
}

void PictureButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal stroke = hasFocus() ? 2.5 : 1;
    painter.setPen(QPen(hasFocus() ? focusOutline : outline, stroke));
    painter.setBrush(isDown() ? colour_.darker(106) : colour_);
    const QRectF frame = QRectF(rect()).adjusted(stroke / 2, stroke / 2, -stroke / 2, -stroke / 2);
    painter.drawRoundedRect(frame, roundness, roundness);
    picture_.render(&painter, pictureRect());
}

void PictureButton::mouseMoveEvent(QMouseEvent* event) {
    QAbstractButton::mouseMoveEvent(event);
    Q_EMIT pointerMoved();
}

void PictureButton::mouseReleaseEvent(QMouseEvent* event) {
    if (isDown() && event->button() == Qt::LeftButton && hitButton(event->pos()))
        Q_EMIT pictureClicked();
    QAbstractButton::mouseReleaseEvent(event);
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace mainwindow
