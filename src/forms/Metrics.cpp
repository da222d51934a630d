#include "forms/Metrics.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QScreen>
#include <QWidget>

namespace forms {

namespace {

/// What a window manager may put around a window.
constexpr QSize windowFrame(8, 40);
/// Height of a line of the texts for which sizes of windows are thought.
constexpr qreal usualLine = 14;
constexpr int readableLetters = 95;

/// Acts when the font of a widget, or of the application, has changed.
class FontFollower : public QObject {
  public:
    FontFollower(QObject& watched, QEvent::Type change, QWidget* owner, std::function<void()> fit)
        : QObject(owner), change_(change), fit_(std::move(fit)) {
        watched.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == change_)
            fit_();
        return false;
    }

  private:
    QEvent::Type change_;
    std::function<void()> fit_;
};

} // namespace

void fitToFont(QWidget& widget, std::function<void()> fit) {
    fit();
    new FontFollower(widget, QEvent::FontChange, &widget, std::move(fit));
}

/// The widget itself is not told, as the size of its font is its own.
void enlarge(QWidget& widget, qreal factor, bool bold) {
    const auto fit = [&widget, factor, bold] {
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * factor);
        font.setBold(bold);
        widget.setFont(font);
    };
    fit();
    new FontFollower(*qApp, QEvent::ApplicationFontChange, &widget, fit);
}

int lettersWide(const QWidget& widget, int letters) {
    return widget.fontMetrics().averageCharWidth() * letters;
}

int linesHigh(const QWidget& widget, int lines) {
    return widget.fontMetrics().lineSpacing() * lines;
}

int longestLine(const QWidget& widget) {
    const QString words = QStringLiteral("Práca s obrázkami, dieťa si vie vybrať jednu z nich. ");
    return int(widget.fontMetrics().horizontalAdvance(words) * readableLetters / words.size());
}

QSize roomFor(const QWidget& window) {
    return window.screen()->availableSize() - windowFrame;
}

void openAs(QWidget& window, QSize size) {
    const qreal scale = std::max(1.0, window.fontMetrics().height() / usualLine);
    window.resize((size * scale).boundedTo(roomFor(window)));
}

} // namespace forms
