#pragma once

#include "store/Progress.h"

#include <QDialog>
#include <QElapsedTimer>

#include <chrono>

class QLabel;
class QProgressBar;

namespace forms {

/// Shows how far long works have come, one after the other, and Zrušiť, which gives up the one that
/// runs. Short work is over before anything shows.
class ProgressForm : public QDialog {
    Q_OBJECT
  public:
    static constexpr std::chrono::milliseconds usualPatience{400};

    ProgressForm(const QString& name, const QString& title, QWidget* parent);

    void reject() override;
    /// How long work goes on before the form shows.
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }
    /// Shows what is being done, from now to the next work. The form must outlive what is given
    /// out.
    store::TellProgress progress(const QString& doing);

  private:
    bool showPart(double part);

    QLabel* lblStav_;
    QProgressBar* prgStav_;
    QElapsedTimer since_;
    std::chrono::milliseconds patience_ = usualPatience;
    bool givenUp_ = false;
};

} // namespace forms
