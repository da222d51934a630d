#pragma once

#include "store/Progress.h"

#include <QDialog>
#include <QElapsedTimer>

#include <chrono>

class QLabel;
class QProgressBar;
class QPushButton;

namespace forms {

/// Shows how far long works have come, one after the other, and Zrušiť, which gives up the one that
/// runs, where that is possible. Short work is over before anything shows; nothing can be pressed
/// while it runs.
class ProgressForm : public QDialog {
    Q_OBJECT
  public:
    static constexpr std::chrono::milliseconds usualPatience{500};

    ProgressForm(const QString& name, const QString& title, QWidget* parent);

    /// For work that nothing can stop and that doesn't tell how far it is.
    void setEndless();
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
    QPushButton* cmdZrusit_;
    QElapsedTimer since_;
    QElapsedTimer sincePainted_;
    std::chrono::milliseconds patience_ = usualPatience;
    bool givenUp_ = false;
};

} // namespace forms
