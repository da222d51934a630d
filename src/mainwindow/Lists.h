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

} // namespace mainwindow
