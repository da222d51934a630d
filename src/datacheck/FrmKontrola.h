#pragma once

#include "datacheck/Checker.h"
#include "store/BackgroundCheck.h"
#include "store/Database.h"
#include "store/ProgramFolder.h"

#include <QDialog>

#include <optional>

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTableWidget;

namespace datacheck {

/// Looks for what is wrong in the whole register, and mends of it what the user says. The rows are
/// looked through step by step while the window stays alive, the pages and indexes of the file in
/// the background.
class FrmKontrola : public QDialog {
    Q_OBJECT
  public:
    enum class Card { Client, Employee };
    /// Opens the card of whom `gIdKod` names, and waits until it is closed.
    using OpenCard = std::function<void(Card)>;

    /// @param engine, folder must outlive the window
    FrmKontrola(store::DBEngine& engine, const store::ProgramFolder& folder, OpenCard openCard,
                QWidget* parent = nullptr);
    ~FrmKontrola() override;

    /// The user wants the damaged file repaired, for which nobody may have it open.
    bool wantsRepair() const { return wantsRepair_; }
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    enum class FileState : quint8 { Unknown, Checking, Sound, Damaged, Unreadable };

    QWidget* buttons();
    void startAll();
    void startFile();
    void startRows();
    void nextStep();
    void endRows(bool isWhole);
    void fileChecked(FileState state);
    void fill();
    void addLine(const Finding& finding);
    void showState();
    void showChosen();
    const Finding* chosen() const;
    void mendChosen();
    void mend(const Finding& finding);
    bool pickAndGive(const Finding& finding);
    bool confirmed(const Finding& finding, const QString& question);
    void openCard(const Finding& finding);

    store::DBEngine& engine_;
    const store::ProgramFolder& folder_;
    OpenCard openCard_;
    std::optional<store::Database> database_;
    std::optional<Checker> checker_;
    std::unique_ptr<store::BackgroundCheck> fileCheck_;
    std::vector<Finding> findings_;
    std::size_t step_ = 0;
    FileState file_ = FileState::Unknown;
    bool isRunning_ = false;
    bool isWhole_ = false;
    bool wantsRepair_ = false;
    /// What the last mend did.
    QString done_;
    int line_ = 0;

    QLabel* lblStav_;
    QLabel* lblSubor_;
    QTableWidget* lstNalezy_;
    QPlainTextEdit* txtZaznamy_;
    QProgressBar* prgStav_;
    QPushButton* cmdNaprav_ = nullptr;
    QPushButton* cmdZnova_ = nullptr;
    QPushButton* cmdZrusit_ = nullptr;
};

} // namespace datacheck
