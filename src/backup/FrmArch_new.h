#pragma once

#include "backup/BackupForm.h"

namespace backup {

/// Makes an archive of the register where the user says.
class FrmArch_new : public BackupForm {
    Q_OBJECT
  public:
    FrmArch_new(store::DBEngine& engine, const store::ProgramFolder& folder,
                QWidget* parent = nullptr);

  protected:
    void work() override;

  private:
    void archive();
    void fail(const QString& why, const QString& place = {});
};

} // namespace backup
