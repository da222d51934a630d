#pragma once

#include <QDialog>
#include <QElapsedTimer>

namespace store {
class DBEngine;
}

namespace mainwindow {

/// Says so as long as a large register is being brought to the present version. There is nothing to
/// answer and nothing to cancel. A small one is through before anything could be read.
class UpgradeNotice : public QDialog {
    Q_OBJECT
  public:
    /// For what the engine opens as long as the notice lives.
    UpgradeNotice(store::DBEngine& engine, const QString& database);
    ~UpgradeNotice() override;

    void reject() override {}

  private:
    void showWork();

    store::DBEngine& engine_;
    QElapsedTimer sinceShown_;
};

} // namespace mainwindow
