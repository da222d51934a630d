#pragma once

#include "backup/Progress.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>

#include <chrono>

class QLabel;
class QProgressBar;

namespace backup {

/// A form that does all its work when it is executed. What is seen of it is how far a long work has
/// come, and Zrušiť; short work is over before it shows. The register must be closed.
class BackupForm : public QDialog {
    Q_OBJECT
  public:
    /// Does the work and waits for its end.
    int exec() override;
    void reject() override;
    /// How long work goes on before the form shows.
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }

  protected:
    BackupForm(const QString& name, const QString& title, store::DBEngine& engine,
               const store::ProgramFolder& folder, QWidget* parent);

    virtual void work() = 0;
    /// Shows what is being done; for one work.
    TellProgress progress(const QString& doing);
    /// Takes the form off the screen and says something.
    QMessageBox::StandardButton tell(const QString& text, QMessageBox::Icon icon,
                                     const QString& detail = {},
                                     QMessageBox::StandardButtons buttons = QMessageBox::Ok);

    store::DBEngine& engine() const { return engine_; }
    const store::ProgramFolder& folder() const { return folder_; }

  private:
    bool showPart(double part);

    store::DBEngine& engine_;
    const store::ProgramFolder& folder_;
    QLabel* lblStav_;
    QProgressBar* prgStav_;
    QElapsedTimer since_;
    std::chrono::milliseconds patience_{400};
    bool givenUp_ = false;
};

} // namespace backup
