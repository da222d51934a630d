#include "Csv.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>

#include <optional>

namespace mkdb {

namespace {

QString decode(const QByteArray& bytes, const QString& source) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        throw CsvError(QStringLiteral("%1: súbor nie je v kódovaní UTF-8").arg(source));
    return text.startsWith(QChar(QChar::ByteOrderMark)) ? text.mid(1) : text;
}

class Reader {
  public:
    Reader(QString text, QString source) : text_(std::move(text)), source_(std::move(source)) {}

    /// The next line that is not empty, or nothing at the end.
    std::optional<QStringList> nextRow() {
        while (position_ < text_.size()) {
            if (!endLine())
                return row();
        }
        return std::nullopt;
    }

    /// Line on which the last row began, from 1.
    int rowLine() const { return rowLine_; }

    [[noreturn]] void fail(const QString& message, int line) const {
        throw CsvError(QStringLiteral("%1, riadok %2: %3").arg(source_).arg(line).arg(message));
    }

  private:
    QChar current() const { return position_ < text_.size() ? text_[position_] : QChar(); }
    bool atEnd() const { return position_ >= text_.size(); }

    bool endLine() {
        const int width = QStringView(text_).mid(position_).startsWith(u"\r\n") ? 2
                          : current() == u'\n'                                  ? 1
                                                                                : 0;
        position_ += width;
        line_ += width > 0 ? 1 : 0;
        return width > 0;
    }

    QStringList row() {
        rowLine_ = line_;
        QStringList cells{cell()};
        while (current() == u',') {
            ++position_;
            cells.append(cell());
        }
        if (!atEnd() && !endLine())
            fail(QStringLiteral("za uzatváracou úvodzovkou stojí ďalší text"), line_);
        return cells;
    }

    QString cell() { return current() == u'"' ? quotedCell() : plainCell(); }

    QString plainCell() {
        const qsizetype begin = position_;
        while (!atEnd() && current() != u',' && current() != u'\n' && current() != u'\r') {
            if (current() == u'"')
                fail(QStringLiteral("úvodzovka uprostred hodnoty bez úvodzoviek"), line_);
            ++position_;
        }
        if (current() == u'\r' && !QStringView(text_).mid(position_).startsWith(u"\r\n"))
            fail(QStringLiteral("osamotený znak CR"), line_);
        return position_ == begin ? QString() : text_.mid(begin, position_ - begin);
    }

    QString quotedCell() {
        const int begin = line_;
        QString cell = QStringLiteral("");
        for (++position_; !atEnd(); ++position_) {
            if (current() == u'"') {
                ++position_;
                if (current() != u'"')
                    return cell;
            }
            line_ += current() == u'\n' ? 1 : 0;
            cell.append(current());
        }
        fail(QStringLiteral("neuzavretá úvodzovka"), begin);
    }

    QString text_;
    QString source_;
    qsizetype position_ = 0;
    int line_ = 1;
    int rowLine_ = 1;
};

void requireDistinct(const QStringList& columns, const Reader& reader) {
    QSet<QString> seen;
    for (const QString& column : columns) {
        if (column.isEmpty() || seen.contains(column.toLower()))
            reader.fail(QStringLiteral("prázdny alebo opakovaný názov stĺpca"), reader.rowLine());
        seen.insert(column.toLower());
    }
}

} // namespace

int CsvTable::column(const QString& name) const {
    for (int index = 0; index < columns.size(); ++index) {
        if (columns[index].compare(name, Qt::CaseInsensitive) == 0)
            return index;
    }
    throw CsvError(QStringLiteral("%1: chýba stĺpec %2").arg(source, name));
}

CsvTable parseCsv(const QByteArray& bytes, const QString& source) {
    Reader reader(decode(bytes, source), source);
    const auto header = reader.nextRow();
    if (!header)
        reader.fail(QStringLiteral("súbor je prázdny"), 1);
    requireDistinct(*header, reader);
    CsvTable table{*header, {}, source};
    while (auto row = reader.nextRow()) {
        if (row->size() != header->size())
            reader.fail(
                QStringLiteral("%1 hodnôt namiesto %2").arg(row->size()).arg(header->size()),
                reader.rowLine());
        table.rows.push_back(std::move(*row));
    }
    return table;
}

CsvTable readCsv(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw CsvError(QStringLiteral("%1: %2").arg(path, file.errorString()));
    return parseCsv(file.readAll(), QFileInfo(path).fileName());
}

} // namespace mkdb
