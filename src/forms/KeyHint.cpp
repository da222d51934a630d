#include "forms/KeyHint.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace forms {

namespace {

constexpr QChar dot(u'·');

} // namespace

KeyHint::KeyHint(QWidget* parent) : KeyHint(QString(), parent) {}

KeyHint::KeyHint(const QString& keys, QWidget* parent) : QLabel(keys, parent) {
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::PlaceholderText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QString KeyHint::fitting() const {
    QString shown = text();
    while (fontMetrics().horizontalAdvance(shown) > contentsRect().width() && shown.contains(dot))
        shown = shown.first(shown.lastIndexOf(dot)).trimmed();
    return shown;
}

/// Of the first key.
QSize KeyHint::minimumSizeHint() const {
    const QString first = text().section(dot, 0, 0).trimmed();
    const QMargins margins = contentsMargins();
    return {fontMetrics().horizontalAdvance(first) + margins.left() + margins.right(),
            QLabel::minimumSizeHint().height()};
}

bool KeyHint::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        setToolTip(fitting() == text() ? QString() : text());
    return QLabel::event(event);
}

void KeyHint::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), int(alignment() | Qt::AlignVCenter), palette(),
                          isEnabled(), fitting(), foregroundRole());
}

} // namespace forms
