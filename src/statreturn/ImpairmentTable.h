#pragma once

#include "statreturn/Counts.h"
#include "store/Progress.h"

#include <QString>
#include <QStringView>

#include <array>

namespace store {
class DataSource;
class Recordset;
} // namespace store

namespace statreturn {

/// A table of the return that counts clients by impairment: what Tables I and II differ in.
struct ImpairmentTable {
    /// Holds the rows while the report is open.
    QStringView scratchTable;
    /// Names the client in the table's selections.
    QStringView keyColumn;
    /// Whether a client's impairment string stands for more than one impairment.
    bool (*several)(QStringView postih) = nullptr;
    /// The captions in the report's footer that show the totals of the printed columns 1 to 22.
    std::array<QStringView, printedColumns.size()> totals;
};

/// Whether the second character of the trimmed impairment string is a digit other than 0.
bool hasSecondImpairment(QStringView postih);
/// Whether the trimmed impairment string is not of one character.
bool isNotOneImpairment(QStringView postih);

/// Label89 stands before label88.
inline constexpr ImpairmentTable tableOne{
    u"z_vek",
    u"idk",
    hasSecondImpairment,
    {u"Label68", u"Label69", u"Label70", u"Label71", u"Label72", u"Label73", u"Label74", u"label75",
     u"Label76", u"Label77", u"label78", u"label79", u"label80", u"label81", u"label82", u"label83",
     u"label84", u"label85", u"Label86", u"label87", u"label89", u"label88"}};

inline constexpr ImpairmentTable tableTwo{
    u"z_vzdelavanie",
    u"idk_zar",
    isNotOneImpairment,
    {u"Label66", u"Label67", u"Label68", u"Label69", u"Label70", u"Label71", u"Label72", u"label73",
     u"Label74", u"Label75", u"label76", u"label77", u"label78", u"label79", u"label80", u"label81",
     u"label82", u"label83", u"Label84", u"label85", u"label86", u"label87"}};

/// Walks through the rows of a recordset and tells how far it is.
class RowProgress {
  public:
    RowProgress(store::Recordset& rows, const store::Share& share);
    /// @throws store::EngineError, store::GivenUp
    void next();

  private:
    store::Recordset& rows_;
    const store::Share& share_;
    double count_;
    qint64 row_ = 0;
};

/// Counts the clients of a selection, whose rows stand in the order of the clients' keys, each
/// client once. @throws store::EngineError, store::GivenUp
Counts countClients(store::DataSource& datTlac, const QString& selection,
                    const ImpairmentTable& table, const store::Share& share);

} // namespace statreturn
