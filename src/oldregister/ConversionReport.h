#pragma once

#include <QStringList>

#include <vector>

namespace oldregister {

/// Rows of a table, as far as they were told, found and kept.
struct TableCount {
    QString table;
    qint64 told = 0;
    qint64 read = 0;
    qint64 written = 0;
};

/// Something that could not be taken over as it was.
struct Finding {
    /// Key and name of the client or employee; empty when it concerns none.
    QString client;
    QString table;
    /// A Slovak sentence.
    QString what;
    /// Whatever of it did not find its place in the new register, whole.
    QString content;
};

/// A table as a reader knows it, with its own name behind; a foreign one by that name alone.
QString captionOf(const QString& table);

/// What a conversion did.
struct ConversionReport {
    QString oldFile;
    /// See protectionOf.
    QString protection;
    /// Where the old file lies now, when it was given another name.
    QString keptFile;
    /// Where the report itself lies, when it was written.
    QString reportFile;
    std::vector<TableCount> tables;
    std::vector<Finding> findings;

    qint64 rowsRead() const;
    qint64 rowsWritten() const;
    /// Whose report it is, line by line.
    QStringList about() const;
    /// How many exceptions there are, in a Slovak sentence.
    QString summary() const;
    /// All of it as the lines of a text file.
    QString text() const;
};

} // namespace oldregister
