#pragma once

#include "backup/Copies.h"
#include "backup/CopyInspection.h"

#include <QDialog>

#include <memory>
#include <optional>

class QLabel;
class QPushButton;
class QTableWidget;

namespace backup {

/// The copies that the program has made: when, how large, how many clients, whether they are sound.
/// One can be chosen to be restored, or saved elsewhere.
class FrmZalohy : public QDialog {
    Q_OBJECT
  public:
    explicit FrmZalohy(const store::ProgramFolder& folder, QWidget* parent = nullptr);
    ~FrmZalohy() override;

    /// The archive that the user wants to be restored, after the window has closed.
    const std::optional<QString>& toRestore() const { return toRestore_; }

  private:
    void buildList();
    QPushButton* addButton(const QString& name, const QString& caption, const QString& tip,
                           void (FrmZalohy::*action)());
    void fill();
    void showState(size_t place, const CopyState& state);
    const Copy* chosen() const;
    void choose();
    void restoreChosen();
    void saveChosen();
    void save(const Copy& copy);

    const store::ProgramFolder& folder_;
    std::vector<Copy> copies_;
    QTableWidget* lstZalohy_;
    QLabel* lblStav_;
    QPushButton* cmdObnovit_ = nullptr;
    QPushButton* cmdUlozit_ = nullptr;
    std::optional<QString> toRestore_;
    std::unique_ptr<CopyInspection> inspection_;
};

} // namespace backup
