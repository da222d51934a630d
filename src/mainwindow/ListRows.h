#pragma once

#include "mainwindow/Lists.h"
#include "store/DataSource.h"

#include <array>
#include <optional>

class QWidget;

namespace mainwindow {

/// The main window's data sources. They end with its data, so that the file is free.
struct MainSources {
    explicit MainSources(store::DBEngine& engine);
    std::array<store::DataSource*, 4> all() { return {&datGrid, &datCisVzd, &datTlac, &DatVymZam}; }

    store::DataSource datGrid;
    store::DataSource datTlac;
    store::DataSource datCisVzd;
    store::DataSource DatVymZam;
};

/// What the deletes and the search of the lists work on.
struct ListPlace {
    QWidget* window;
    const Surroundings& around;
    MainSources& sources;
};

/// Ask and delete the current client with all that belongs to it, or the current employee unless
/// clients' records name it. @return whether it was deleted. @throws store::EngineError
bool vymazKlienta(const ListPlace& place);
bool vymazZamestnanca(const ListPlace& place);

/// Asks for a surname and a first name and moves to the first row that begins with them.
/// @return what was looked for, if anything. @throws store::EngineError
std::optional<QString> hladaj(const ListPlace& place, const ListTraits& list);
/// Moves to the next row that begins with what was looked for before, behind the last one to the
/// first. @throws store::EngineError
void hladajDalej(const ListPlace& place, const ListTraits& list, const QString& input);

/// The text of a column of the current row. @throws store::EngineError
QString fieldText(store::DataSource& source, QStringView column);

/// First name, two blanks, surname, as the questions name a person. @throws store::EngineError
QString trimmedName(store::DataSource& source);

} // namespace mainwindow
