#pragma once

class QWidget;

namespace clientcard {

class EntryFields;
class ImpairmentFields;
class ParentOptions;
class Pickers;

/// The controls of the two entry tabs, made and named, to be put in their places.
struct EntryControls {
    EntryFields& fields;
    Pickers& pickers;
    ParentOptions& options;
    ImpairmentFields& client;
    ImpairmentFields& mother;
    ImpairmentFields& father;
    QWidget& cmbSex;
    QWidget& lastRecords;
};

/// Makes the pages of the two tabs and gives their controls the order of Tab.
QWidget* makeBasicPage(const EntryControls& controls, QWidget* parent);
QWidget* makeParentsPage(const EntryControls& controls, QWidget* parent);

} // namespace clientcard
