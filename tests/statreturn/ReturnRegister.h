#pragma once

#include "mkdb/Commands.h"
#include "report/Pages.h"
#include "statreturn/ReturnPrints.h"
#include "store/DataSource.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QDate>
#include <QMap>

#include <functional>

/// The texts of a row that are not empty, by column in lower case.
using Cells = QMap<QString, QString>;

inline const QDate today(2007, 9, 3);

/// An invented register and a preview that notes what it is shown.
struct ReturnRegister {
    explicit ReturnRegister(const QStringList& kind)
        : reg([&kind](const QString& file) {
              QString problem;
              QStringList arguments = kind;
              arguments.insert(1, file);
              mkdb::run(
                  mkdb::readArguments(arguments, QStringLiteral(TVK_DATA_FOLDER), today, problem)
                      .value());
          }) {
        datCisVzd.setDatabaseName(reg.folder.database());
        datTlac.setDatabaseName(reg.folder.database());
        datTlac.setRecordSource(QStringLiteral("k_zaklad"));
        datTlac.Refresh();
    }

    /// All rows of a table, read by an engine of their own, as a crash would leave them.
    QList<Cells> durable(const QString& table) const {
        store::DBEngine other;
        const auto source = other.OpenDatabase(reg.folder.database()).OpenRecordset(table);
        QList<Cells> found;
        for (; !source->Eof(); source->MoveNext()) {
            Cells cells;
            for (const store::OutputColumn& column : source->columns()) {
                const QString text = source->Fields(column.name).Value().toText();
                if (!text.isEmpty())
                    cells[column.name.toLower()] = text;
            }
            found << cells;
        }
        return found;
    }

    /// Shows the real windows nothing: notes the scratch rows and the pages in their place.
    void note(const report::Pages& shown) {
        ++previews;
        pages = shown;
        rows = durable(scratchTable);
        if (atPreview)
            atPreview();
    }
    /// The text of a control on the first page; empty where there is none.
    QString printed(QStringView control) const {
        for (const report::PlacedText& text : pages.pages.at(0).texts) {
            if (text.control == control)
                return text.text;
        }
        return {};
    }

    support::TemporaryRegister reg;
    store::DataSource datTlac{reg.engine};
    store::DataSource datCisVzd{reg.engine};
    QString scratchTable = QStringLiteral("z_vek");
    std::function<void()> atPreview;
    statreturn::ReturnTools tools{.print = {.engine = reg.engine,
                                            .folder = reg.folder,
                                            .showPreview =
                                                [this](const report::Pages& shown, QWidget*) {
                                                    note(shown);
                                                }},
                                  .datTlac = datTlac,
                                  .datCisVzd = datCisVzd};
    report::Pages pages;
    QList<Cells> rows;
    int previews = 0;
};
