#include "forms/CodeDropDown.h"

#include "store/DataSource.h"

#include <optional>

namespace forms {

namespace {

/// Letters' case aside. The lists are short.
std::optional<QString> lookUp(store::DataSource& list, const QString& text,
                              const QString& textColumn, const QString& soughtColumn) {
    if (text.isEmpty() || !list.isOpen())
        return std::nullopt;
    const auto rows = list.Recordset().Clone();
    if (list.Recordset().RecordCount() == 0)
        return std::nullopt;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
        const QString found = rows->Fields(textColumn).Value().toText();
        if (found.compare(text, Qt::CaseInsensitive) == 0)
            return rows->Fields(soughtColumn).Value().toText();
    }
    return std::nullopt;
}

} // namespace

CodeDropDown::CodeDropDown(store::DataSource& codes, const QString& codeColumn,
                           const QString& nameColumn, QWidget* parent)
    : DropDown(parent, Kind::Editable), codes_(codes), codeColumn_(codeColumn),
      nameColumn_(nameColumn) {
    setSource(codes, nameColumn);
}

QString CodeDropDown::nameOf(const QString& code) const {
    return lookUp(codes_, code, codeColumn_, nameColumn_).value_or(QString());
}

QString CodeDropDown::boundText() const {
    return text() == name_ ? code_
                           : lookUp(codes_, text(), nameColumn_, codeColumn_).value_or(code_);
}

void CodeDropDown::showBound(const QString& code) {
    code_ = code;
    name_ = nameOf(code);
    setText(name_);
}

void CodeDropDown::enter(const QString& code) {
    setText(nameOf(code));
}

} // namespace forms
