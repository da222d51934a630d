#pragma once

#include "forms/RecordsetModel.h"
#include "mainwindow/Surroundings.h"

#include <QStringView>

#include <span>

namespace mainwindow {

/// What differs between the list of clients and the list of employees. Texts that end in a blank or
/// a colon are continued.
struct ListTraits {
    int number;
    QStringView gridName;
    QStringView heading;
    std::span<const forms::GridColumn> columns;
    /// By what a click on the head of each column sorts.
    std::span<const QStringView> orders;
    /// The columns in which the filter looks.
    std::span<const QStringView> filtered;
    QStringView filterHint;
    /// Of how many, in words: of one and of more.
    QStringView countedOne;
    QStringView counted;
    QStringView sqlByName;
    QStringView newCaption;
    QStringView deleteCaption;
    QStringView findCaption;
    QStringView noneToDelete;
    QStringView deleteQuestion;
    QStringView deleteTitle;
    QStringView noneToFind;
    QStringView findPrompt;
    QStringView notFound;
    Screen card;
};

extern const ListTraits clientList;
extern const ListTraits employeeList;

/// The clients in the order of their catalogue numbers.
inline constexpr QStringView clientsByNumber =
    u"select *,meno+space(2)+priezv as celemeno from k_zaklad order by val(katcis)";

/// The column by which a list comes, and the one that holds the catalogue number.
inline constexpr int nameColumn = 1;
inline constexpr int numberColumn = 3;

/// The list in the order of a column.
QString sortedBy(const ListTraits& list, int column, Qt::SortOrder order);

} // namespace mainwindow
