#pragma once

#include "staff/FrmPsychUdaj.h"
#include "support/CardDriver.h"

#include <QRadioButton>

namespace cardtest {

/// The tables whose records name an employee.
inline constexpr const char* workTables[] = {"k_vysetrenie", "k_zaznam_spc", "k_zaznam_zmeny"};

/// A register with Eva Novotna and the functions F1 to F9, and the card of an employee on it.
class EmployeeScreen : public CardDriver<staff::FrmPsychUdaj> {
  protected:
    EmployeeScreen() {
        for (int i = 1; i <= 9; ++i)
            reg.add(text("c_funkcie"), {{u"fc_idkod", i}, {u"nazov", text("F%1").arg(i)}});
        addEmployee("NOVOTNEV00");
    }
    /// Adds one, and a record in each table.
    void addEmployee(const char* key) {
        reg.add(text("zamestnanci"), {{u"idkod", text(key)},
                                      {u"meno", text("Eva")},
                                      {u"priezv", text("Novotna")},
                                      {u"prac_zar", 2}});
        for (const char* table : workTables)
            reg.add(text(table), {{u"idkod_p", text(key)}});
    }
    /// Leaves one employee and the records of that one.
    void restart(const char* key) {
        reg.execute({text("delete from zamestnanci")});
        for (const char* table : workTables)
            reg.execute({text("delete from ") + text(table)});
        addEmployee(key);
    }
    void typeName(int field, const char* typed) {
        auto& entry = at(field == 0 ? "TextPsych(0)" : "TextPsych(1)");
        entry.setFocus();
        entry.selectAll();
        type(typed);
    }
    /// A column of the only man.
    QString ofTheMan(const char* column) {
        return reg.text(text("select * from zamestnanci where pohlavie = 'm'"), text(column));
    }
    qint64 employees(const char* condition) {
        return reg.count(text("select * from zamestnanci where ") + text(condition));
    }
};

} // namespace cardtest
