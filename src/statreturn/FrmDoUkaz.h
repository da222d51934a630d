#pragma once

#include "forms/Binding.h"
#include "forms/EntryField.h"
#include "statreturn/EntryForm.h"
#include "store/DataSource.h"
#include "store/ProgramFolder.h"

#include <array>
#include <functional>
#include <optional>

class QGridLayout;
class QLabel;

namespace statreturn {

/// Table IV of the return, the supplementary indicators: one row of four numbers and the sum that
/// controls them.
class FrmDoUkaz : public EntryForm {
    Q_OBJECT
  public:
    /// Opens the row, a new one when the table is empty. @param engine must outlive the form
    /// @throws store::EngineError
    FrmDoUkaz(store::DBEngine& engine, const store::ProgramFolder& folder,
              QWidget* parent = nullptr);
    ~FrmDoUkaz() override;

    void gotFocus(const forms::Control& control) override;
    bool validates(const forms::Control& control) const override;
    bool validate(const forms::Control& control) override;
    void change(const forms::Control& control) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    static constexpr int fieldCount = 5;
    static constexpr int controlSum = 4;

    bool isChanged() const override;
    void write() override;
    void resume() override;
    void drop() override;
    bool endsByFrame() override;
    void returnFocus(const forms::Control& left) override;

    void layOut();
    void addField(QGridLayout& grid, int element);
    void openRow();
    void dropRow();
    qint64 sum() const;
    void showSum();

    store::DataSource datDopUkaz_;
    std::array<forms::EntryField*, fieldCount> TextPsych_{};
    QLabel* live_ = nullptr;
    std::optional<forms::Binding> binding_;
    /// Puts what the last write was to take into the fields again.
    std::function<void()> enterAgain_;
    /// Field to which the focus goes back, -1 for none.
    qint16 fokusIdx_ = -1;
};

} // namespace statreturn
