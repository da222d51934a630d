#include "forms/MessageBox.h"

#include "store/EngineError.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QWidget>

#include <array>
#include <chrono>

namespace forms {

namespace {

/// Wide enough for a name.
constexpr int promptWidth = 340;

QString titleOrName(const QString& title) {
    return title.isEmpty() ? QCoreApplication::applicationName() : title;
}

QMessageBox::StandardButton escapeButton(QMessageBox::StandardButtons buttons) {
    constexpr auto inOrder =
        std::to_array({QMessageBox::Cancel, QMessageBox::No, QMessageBox::Retry, QMessageBox::Ok});
    for (const QMessageBox::StandardButton button : inOrder) {
        if (buttons.testFlag(button))
            return button;
    }
    return QMessageBox::NoButton;
}

/// Gives the window that was active before a box its activation back; some platforms leave none.
/// Waits for it: in an inactive window a move of the focus would be told later than it happens.
class ActivationKeeper {
  public:
    explicit ActivationKeeper(const QWidget* parent)
        : window_(parent != nullptr ? parent->window() : QApplication::activeWindow()),
          wasActive_(window_ != nullptr && window_->isActiveWindow()) {}
    ~ActivationKeeper() {
        if (!isShown())
            return;
        window_->activateWindow();
        // The user may have turned to another program meanwhile.
        const QDeadlineTimer patience(std::chrono::milliseconds(300));
        while (wasActive_ && isShown() && !window_->isActiveWindow() && !patience.hasExpired())
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    }
    Q_DISABLE_COPY_MOVE(ActivationKeeper)

  private:
    bool isShown() const { return window_ != nullptr && window_->isVisible(); }

    QPointer<QWidget> window_;
    bool wasActive_;
};

} // namespace

QMessageBox::StandardButton showMessage(QWidget* parent, const Message& message) {
    const ActivationKeeper keeper(parent);
    QMessageBox box(message.icon, titleOrName(message.title), message.text, message.buttons,
                    parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(message.defaultButton);
    box.setInformativeText(message.detail);
    if (const auto escape = escapeButton(message.buttons); escape != QMessageBox::NoButton)
        box.setEscapeButton(escape);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

std::optional<QString> askText(QWidget* parent, const QString& prompt, const QString& title,
                               const QString& initial) {
    const ActivationKeeper keeper(parent);
    QInputDialog dialog(parent);
    dialog.setWindowTitle(titleOrName(title));
    dialog.setLabelText(prompt);
    dialog.setTextValue(initial);
    dialog.findChild<QLabel*>()->setTextFormat(Qt::PlainText);
    // The dialog itself always takes the size of its layout.
    dialog.findChild<QLineEdit*>()->setMinimumWidth(promptWidth);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

void showEngineError(QWidget* parent, const store::EngineError& error) {
    const QString text = QStringLiteral("Chyba č. %1\n\n%2")
                             .arg(static_cast<int>(error.number()))
                             .arg(error.description());
    constexpr qsizetype mostOfAStatement = 300;
    const QString& place = error.place();
    showMessage(
        parent,
        {.text = text,
         .icon = QMessageBox::Critical,
         .detail = place.size() > mostOfAStatement ? place.first(mostOfAStatement) + u'…' : place});
}

} // namespace forms
