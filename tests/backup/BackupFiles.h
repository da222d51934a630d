#pragma once

#include "backup/Archive.h"
#include "backup/Restore.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"
#include "support/TemporaryRegister.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

inline bool isRegister(const QString& file, const store::TellProgress& /*tell*/) {
    try {
        store::DBEngine().OpenDatabase(file).Close();
        store::DBEngine::verifyDatabase(file);
        return true;
    } catch (const store::EngineError&) {
        return false;
    }
}

/// Lets a register have one client, of that name, and closes it.
inline void setClientOf(support::TemporaryRegister& reg, const QString& name) {
    reg.execute(
        {QStringLiteral("delete * from k_zaklad"),
         QStringLiteral("insert into k_zaklad (idkod, priezv) values ('A', '%1')").arg(name)});
    reg.engine.commitPending();
    reg.letGo();
}

/// A closed register with a client of that name in it.
class BackupFiles : public testing::Test {
  protected:
    BackupFiles() { setClient(QStringLiteral("Prvý")); }

    void setClient(const QString& name) { setClientOf(reg, name); }
    QString client() {
        const QString name = reg.text(QStringLiteral("k_zaklad"), QStringLiteral("priezv"));
        reg.letGo();
        return name;
    }
    QString path(const char* name) const { return reg.directory.filePath(QLatin1String(name)); }
    QStringList names() const { return files::namesIn(reg.directory.path()); }

    support::TemporaryRegister reg;
    QTemporaryDir elsewhere;
};
