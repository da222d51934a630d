#pragma once

#include "forms/ProgressForm.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QMessageBox>

namespace backup {

/// A form that does all its work when it is executed. What is seen of it is how far a long work has
/// come. The register must be closed.
class BackupForm : public forms::ProgressForm {
    Q_OBJECT
  public:
    /// Does the work and waits for its end.
    int exec() override;

  protected:
    BackupForm(const QString& name, const QString& title, store::DBEngine& engine,
               const store::ProgramFolder& folder, QWidget* parent);

    virtual void work() = 0;
    /// Takes the form off the screen and says something.
    QMessageBox::StandardButton tell(const QString& text, QMessageBox::Icon icon,
                                     const QString& detail = {},
                                     QMessageBox::StandardButtons buttons = QMessageBox::Ok);

    store::DBEngine& engine() const { return engine_; }
    const store::ProgramFolder& folder() const { return folder_; }

  private:
    store::DBEngine& engine_;
    const store::ProgramFolder& folder_;
};

} // namespace backup
