#include "backup/BackupForm.h"

#include "forms/MessageBox.h"

namespace backup {

BackupForm::BackupForm(const QString& name, const QString& title, store::DBEngine& engine,
                       const store::ProgramFolder& folder, QWidget* parent)
    : ProgressForm(name, title, parent), engine_(engine), folder_(folder) {}

int BackupForm::exec() {
    work();
    hide();
    return Accepted;
}

QMessageBox::StandardButton BackupForm::tell(const QString& text, QMessageBox::Icon icon,
                                             const QString& detail,
                                             QMessageBox::StandardButtons buttons) {
    hide();
    return forms::showMessage(parentWidget(),
                              {.text = text, .icon = icon, .buttons = buttons, .detail = detail});
}

} // namespace backup
