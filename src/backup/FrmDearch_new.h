#pragma once

#include "backup/BackupForm.h"
#include "backup/Restore.h"

namespace backup {

/// Replaces the register by the one of an archive that the user chooses.
class FrmDearch_new : public BackupForm {
    Q_OBJECT
  public:
    /// @param isRegister tells what may take the register's place
    FrmDearch_new(store::DBEngine& engine, const store::ProgramFolder& folder,
                  IsRegister isRegister, QWidget* parent = nullptr);

    /// "MENU" over a register, which is kept as "tvk_ren.mdb" after a warning, or "LOAD" where
    /// there is none.
    void setMode(const QString& mode) { mode_ = mode; }

  protected:
    void work() override;

  private:
    void restore();
    bool overwriteAgreed();
    void putInPlace(Restore& restored);
    void tellBad(Restore& restored);
    void fail(const QString& why);
    bool isFromMenu() const { return mode_ == QStringLiteral("MENU"); }

    IsRegister isRegister_;
    QString mode_;
};

} // namespace backup
