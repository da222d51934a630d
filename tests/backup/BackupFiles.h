#pragma once

#include "backup/Archive.h"
#include "backup/Restore.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A closed register with a client of that name in it.
class BackupFiles : public testing::Test {
  protected:
    BackupFiles() { setClient(u"Prvý"); }

    void setClient(QStringView name) {
        reg.execute(
            {QStringLiteral("delete * from k_zaklad"),
             QStringLiteral("insert into k_zaklad (idkod, priezv) values ('A', '%1')").arg(name)});
        reg.engine.commitPending();
        reg.letGo();
    }
    QString client() {
        const QString name = reg.text(QStringLiteral("k_zaklad"), QStringLiteral("priezv"));
        reg.letGo();
        return name;
    }
    QString path(const char* name) const { return reg.directory.filePath(QLatin1String(name)); }
    QStringList names() const { return files::namesIn(reg.directory.path()); }
    bool isRegister(const QString& file) {
        try {
            reg.engine.OpenDatabase(file).Close();
            store::DBEngine::verifyDatabase(file);
            return true;
        } catch (const store::EngineError&) {
            return false;
        }
    }
    backup::IsRegister checker() {
        return [this](const QString& file, const store::TellProgress&) {
            return isRegister(file);
        };
    }

    support::TemporaryRegister reg;
    QTemporaryDir elsewhere;
};
