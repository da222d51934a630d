#include "backup/FileChoice.h"

#include <QDir>
#include <QLineEdit>
#include <QStandardPaths>

namespace backup {

namespace {

QString startFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

/// Takes a typed name without the blanks around it, so that what it asks about is what is chosen.
class TrimmingDialog : public QFileDialog {
  public:
    using QFileDialog::QFileDialog;

  protected:
    void accept() override {
        if (auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
            name->setText(name->text().trimmed());
        QFileDialog::accept();
    }
};

} // namespace

std::optional<QString> chooseFile(QWidget* parent, const FileChoice& choice) {
    TrimmingDialog dialog(parent, choice.title, startFolder());
    // The desktop's own would speak the desktop's language.
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(choice.mode);
    dialog.setFileMode(choice.mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                              : QFileDialog::AnyFile);
    QStringList filters;
    for (const auto& [caption, pattern] : choice.filters)
        filters << QStringLiteral("%1 (%2)").arg(caption, pattern);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.at(choice.filter));
    dialog.selectFile(QStringLiteral("arch_tvk.zip"));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().constFirst().trimmed();
}

} // namespace backup
