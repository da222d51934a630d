#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace bench {

/// Invented registers of several sizes, in a folder that ends with the object.
class Samples {
  public:
    /// Clients with their basic data alone. Made at first use.
    QString clientsOnly(int clients);
    /// Clients with all that belongs to them, and free space of rows that were deleted.
    QString withFreeSpace(int clients);
    /// Keys spread over such a register.
    QStringList keys(int clients, int count);
    QString fresh(const char* name) const { return directory_.filePath(QString::fromUtf8(name)); }

  private:
    QTemporaryDir directory_;
};

} // namespace bench
