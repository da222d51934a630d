#pragma once

#include <QString>
#include <QStringView>

namespace store {

/// Where the program's files lie; paths are built afresh at every use.
class ProgramFolder {
  public:
    /// @param directory the program's directory, without a trailing separator
    explicit ProgramFolder(QString directory) : directory_(std::move(directory)) {}
    /// Folder, separator and file name; a folder that is a root gives a double separator.
    QString path(QStringView fileName) const {
        return directory_ + QLatin1Char('/') + fileName.toString();
    }
    QString database() const { return path(u"tvk.mdb"); }

  private:
    QString directory_;
};

} // namespace store
