#pragma once

class QObject;
class QStyledItemDelegate;
class QTableView;

namespace forms {

/// Makes a table a list: its rows are chosen as a whole, by keys and clicks, and nothing is edited
/// in it.
void lookLikeList(QTableView& table);

/// Makes the lines of a list as high as the rows of a table, so that they don't stick together.
QStyledItemDelegate* makeLines(QObject* parent);

/// Shows what is chosen in a table in a paler colour while the keys go elsewhere.
void paleWithoutFocus(QTableView& table);

} // namespace forms
