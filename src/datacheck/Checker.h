#pragma once

#include "datacheck/Finding.h"
#include "store/Database.h"

#include <QMap>

#include <functional>

namespace datacheck {

/// Looks through the rows of a register for what no screen would let in, step by step. Writes
/// nothing.
class Checker {
  public:
    /// @param database must outlive the checker
    explicit Checker(store::Database& database);

    std::size_t steps() const { return steps_.size(); }
    /// Takes one step; each costs time in proportion to one table. @throws store::EngineError
    void run(std::size_t step) { steps_[step](); }
    /// What has been found. Of one kind no more than so many are listed; the last one says so.
    std::vector<Finding> take() { return std::move(findings_); }
    static constexpr int mostOfAKind = 500;

  private:
    using Rows = std::shared_ptr<store::Recordset>;
    class Counted;

    Rows open(const QString& sql);
    void lostClients(const RecordTable& table);
    void addWithoutKey(const RecordTable& table, Counted& count);
    void addLost(const RecordTable& table, const QString& key, Counted& count);
    void lostWorkers(const RecordTable& table);
    void missingWorkers(const RecordTable& table);
    void missingKeys();
    void missingTexts();
    void doubleTexts();
    void doubleNumbers();
    void addDoubleNumber(const QString& number, Counted& count);
    void noDates(const QString& table, const QString& column);
    void namelessCodes(const QString& sql, const QString& what, Remedy remedy);
    QString client(const QString& key);
    QString person(const QString& table, const QString& key);
    Finding& grouped(const QString& group, const std::function<Finding()>& make);

    store::Database& database_;
    std::vector<std::function<void()>> steps_;
    std::vector<Finding> findings_;
    /// Where the finding stands that gathers rows of one kind.
    QMap<QString, std::size_t> groups_;
};

} // namespace datacheck
