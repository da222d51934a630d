#pragma once

#include "forms/ProgressForm.h"

namespace forms {

/// Shows a busy pointer for as long as it lives. Menus and lists that are open close first, and
/// what they covered is painted: a work that takes the program to itself would leave them standing.
class BusyPointer {
  public:
    BusyPointer();
    ~BusyPointer();
    Q_DISABLE_COPY_MOVE(BusyPointer)

    /// Something works and may let events through.
    static bool isShown();
};

/// A work that the user waits for and may give up: the pointer is busy from its beginning, and
/// after a while a window tells how far it is.
class LongWork {
  public:
    /// @param doing told to the user
    LongWork(const QString& doing, QWidget* parent,
             std::chrono::milliseconds patience = ProgressForm::usualPatience);

    /// Must not outlive the work.
    const store::TellProgress& progress() const { return progress_; }
    /// Tells that the work goes on, no further than it was. @throws store::GivenUp
    void goOn() const;

  private:
    BusyPointer pointer_;
    ProgressForm form_;
    double part_ = 0;
    store::TellProgress progress_;
};

} // namespace forms
