#pragma once

#include "card/KeyedRow.h"

#include <QString>

namespace staff {

class EmployeeOptions;
class StaffData;

/// Why nothing was written; the numbers are those that the card acts on.
enum class SaveResult { Saved = 0, NoFirstName = 1, NoSurname = 2 };

/// Writes the open row of `zamestnanci`, makes the employee's key and moves the records that name
/// the employee. What one call writes becomes durable as a whole.
class EmployeeSave {
  public:
    /// All must outlive it.
    EmployeeSave(StaffData& data, card::KeyField& field, const EmployeeOptions& options);

    /// @throws store::EngineError from the steps that are not passed over
    SaveResult zapisZam();
    /// Writes a row that is still open under the key that it has. @throws store::EngineError
    void leaveRow();

  private:
    void saveExisting();
    /// Moves the records of clients from a key to another. @throws store::EngineError
    void prepisIdkodP(const QString& oldKey, const QString& newKey);

    StaffData& data_;
    card::KeyField& field_;
    const EmployeeOptions& options_;
    card::KeyedRow row_;
};

} // namespace staff
