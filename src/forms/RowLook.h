#pragma once

class QTableView;

namespace forms {

/// Makes a table a list: its rows are chosen as a whole, by keys and clicks, and nothing is edited
/// in it.
void lookLikeList(QTableView& table);

/// Shows what is chosen in a table in a paler colour while the keys go elsewhere.
void paleWithoutFocus(QTableView& table);

} // namespace forms
