#include "oldregister/Offer.h"

#include "forms/MessageBox.h"
#include "oldregister/FileKind.h"
#include "oldregister/OldReader.h"
#include "oldregister/Protection.h"
#include "oldregister/ReportWindow.h"
#include "oldregister/TakeOver.h"
#include "store/EngineError.h"
#include "store/Progress.h"

#include <QApplication>
#include <QFileInfo>
#include <QProgressDialog>

namespace oldregister {

namespace {

constexpr int progressSteps = 1000;

bool userAgrees(const QString& path, QWidget* parent) {
    const QString protection = protectionOf(path);
    const QString text =
        QStringLiteral("Súbor %1 je v pôvodnom formáte. Previesť ho?\n\n"
                       "Všetky údaje sa prenesú do nového súboru %1. Pôvodný súbor ostane "
                       "nezmenený vedľa neho ako %2. Po prevode uvidíte, čo sa prenieslo a čo "
                       "nie.\n\n%3"
                       "Ak odpoviete Nie, nič sa nezmení a program sa ukončí.")
            .arg(QFileInfo(path).fileName(), QFileInfo(keptNameOf(path)).fileName(),
                 protection.isEmpty() ? QString() : protection + QStringLiteral("\n\n"));
    return forms::showMessage(parent, {.text = text,
                                       .title = QStringLiteral("Upozornenie"),
                                       .icon = QMessageBox::Question,
                                       .buttons = QMessageBox::Yes | QMessageBox::No}) ==
           QMessageBox::Yes;
}

/// Shows how far the conversion has come. @return false when the user has had enough
bool showProgress(QProgressDialog& dialog, double part) {
    // A value would show a dialog again that was cancelled.
    if (dialog.wasCanceled())
        return false;
    dialog.setValue(static_cast<int>(part * progressSteps));
    QCoreApplication::processEvents();
    return !dialog.wasCanceled();
}

ConversionReport takeOverWithProgress(const QString& path, QWidget* parent) {
    QProgressDialog dialog(QStringLiteral("Prevod registra z pôvodného formátu …"),
                           QStringLiteral("Zrušiť"), 0, progressSteps, parent);
    dialog.setObjectName(QStringLiteral("dlgPrevod"));
    dialog.setWindowTitle(QCoreApplication::applicationName());
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(0);
    dialog.setAutoReset(false);
    dialog.setAutoClose(false);
    dialog.show();
    showProgress(dialog, 0);
    return takeOver(path, [&](double part) { return showProgress(dialog, part); });
}

void tellFailure(const QString& why, QWidget* parent) {
    forms::showMessage(parent, {.text = why + QStringLiteral("\n\nPôvodný súbor sa nezmenil."),
                                .title = QStringLiteral("Chybová správa"),
                                .icon = QMessageBox::Critical});
}

bool takeOverOrTell(const QString& path, QWidget* parent) {
    try {
        ReportWindow(takeOverWithProgress(path, parent), parent).exec();
        return true;
    } catch (const store::GivenUp&) {
        return false;
    } catch (const store::EngineError& error) {
        tellFailure(QStringLiteral("Prevod sa nepodaril. ") + error.description(), parent);
        return false;
    }
}

} // namespace

bool offerTakeOver(const QString& path, QWidget* parent) {
    const FileKind kind = kindOf(path);
    if (kind == FileKind::OldRegister)
        return userAgrees(path, parent) && takeOverOrTell(path, parent);
    if (kind == FileKind::OlderVersion || kind == FileKind::NewerVersion)
        tellFailure(refusalOf(kind), parent);
    return true;
}

} // namespace oldregister
