#pragma once

#include "store/DataSource.h"
#include "store/ProgramFolder.h"

#include <QDialog>

class QLineEdit;

namespace forms {
class RecordsetGrid;
}

namespace datacheck {

/// Lets the user pick one client or one employee by surname.
class FrmVyber : public QDialog {
    Q_OBJECT
  public:
    enum class Who { Client, Employee };

    /// @param purpose says what will happen to the one who is picked
    /// @throws store::EngineError
    FrmVyber(Who who, const QString& purpose, store::DBEngine& engine,
             const store::ProgramFolder& folder, QWidget* parent);

    /// Key of the row that is marked; empty when there is none.
    QString key();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void find(const QString& surname);

    store::DataSource source_;
    forms::RecordsetGrid* grid_;
    QLineEdit* textHladaj_;
};

} // namespace datacheck
