#pragma once

#include "statreturn/EntryForm.h"
#include "statreturn/ExpertCare.h"
#include "store/DataSource.h"
#include "store/ProgramFolder.h"

namespace statreturn {

class CareGrid;
class CareSums;

/// Table V of the return, typed by the user: 28 rows of ten numbers. Leaving certain cells compares
/// sums; a user who does not want to correct one goes on, and Zápis writes whatever stands there.
class FrmOdbStar : public EntryForm {
    Q_OBJECT
  public:
    /// Opens the table. @param engine must outlive the form
    /// @throws store::EngineError when it can't be read, or has rows that are not 28 or a multiple
    FrmOdbStar(store::DBEngine& engine, const store::ProgramFolder& folder,
               QWidget* parent = nullptr);

    void gotFocus(const forms::Control& control) override;
    void keyDown(const forms::Control& control, int& key, Qt::KeyboardModifiers modifiers) override;
    bool validates(const forms::Control& control) const override;
    bool validate(const forms::Control& control) override;
    void change(const forms::Control& control) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    /// No row to take the focus back to.
    static constexpr qint16 none = -1;

    bool isChanged() const override;
    void write() override;
    void resume() override;
    void returnFocus(const forms::Control& left) override;

    void layOut();
    void load();
    void readRows();
    forms::Words typedWords() const;
    void enterWords(const forms::Words& words);
    bool corrects(const CareFault& fault);
    void goToTarget(int column);

    store::DataSource datOdbStar_;
    CareGrid* grid_;
    CareSums* sums_;
    /// What the file holds.
    CareCells stored_;
    bool maZaznamy_ = false;
    /// fokusIdx1 to fokusIdx10: the row to which the column takes the focus back.
    std::array<qint16, careColumns> fokusIdx_{};
};

} // namespace statreturn
