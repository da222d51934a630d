#include "statreturn/ReturnPeople.h"

#include "statreturn/Selections.h"
#include "statreturn/TableOne.h"
#include "store/DataSource.h"
#include "store/Recordset.h"
#include "store/Sql.h"

#include <algorithm>

namespace statreturn {

namespace {

/// Reads the register into a ReturnPeople.
class PeopleReader {
  public:
    PeopleReader(store::DataSource& source, const QString& schoolYear, const QDate& today)
        : source_(source), period_(schoolYearPeriod(schoolYear)) {
        people_.schoolYear = schoolYear;
        people_.today = today;
    }

    ReturnPeople read() {
        readTypes();
        readClients();
        readCare();
        readPlacements();
        for (ReturnClient& client : people_.clients)
            findRows(client);
        readEmployees();
        return std::move(people_);
    }

  private:
    store::Recordset& select(const QString& sql) {
        source_.setRecordSource(sql);
        source_.Refresh();
        return source_.Recordset();
    }

    void readTypes() {
        people_.types = educationTypes(source_);
        if (!people_.types.empty())
            educationRowAt(people_.types.size() - 1);
    }

    static Person personAt(store::Recordset& row, bool isEmployee) {
        return {row.Fields(u"idkod").Value().toText(), row.Fields(u"meno").Value().toText(),
                row.Fields(u"priezv").Value().toText(), isEmployee};
    }

    void readClients() {
        store::Recordset& rows = select(
            QStringLiteral("select idkod,meno,priezv,datnar,pohlav,postih,iif(") + isImpaired +
            QStringLiteral(",1,0) as ma_postih from k_zaklad "
                           "order by priezv,meno"));
        for (; !rows.Eof(); rows.MoveNext()) {
            ReturnClient client;
            client.person = personAt(rows, false);
            client.birth = rows.Fields(u"datnar").Value();
            client.counted = {rows.Fields(u"pohlav").Value().toText(),
                              rows.Fields(u"postih").Value().toText()};
            client.impaired = rows.Fields(u"ma_postih").Value().toBool();
            byKey_.insert(client.person.key, people_.clients.size());
            people_.clients.push_back(std::move(client));
        }
    }

    ReturnClient& clientAt(store::Recordset& row) {
        return people_.clients[byKey_.value(row.Fields(u"idk").Value().toText())];
    }

    void readCare() {
        store::Recordset& rows =
            select(QStringLiteral("select k_zaklad.idkod as idk,min(k_zaznam_spc.datum) as prvy "
                                  "from k_zaklad inner join k_zaznam_spc on "
                                  "k_zaklad.idkod=k_zaznam_spc.idkod where ") +
                   isInPeriod(period_) + QStringLiteral(" group by k_zaklad.idkod"));
        for (; !rows.Eof(); rows.MoveNext())
            clientAt(rows).firstCare = rows.Fields(u"prvy").Value().toDate();
    }

    void readPlacements() {
        store::Recordset& rows = select(
            QStringLiteral("select k_zaklad.idkod as idk,k_zariad.nazzar as druh "
                           "from k_zariad inner join k_zaklad on k_zariad.idkod=k_zaklad.idkod "
                           "where ") +
            isEducation + QStringLiteral(" and ") + isOpen);
        for (; !rows.Eof(); rows.MoveNext())
            clientAt(rows).openTypes << rows.Fields(u"druh").Value().toText();
        for (const ReturnClient& client : people_.clients) {
            for (const QString& type : client.openTypes) {
                if (!people_.places.contains(type))
                    people_.places.insert(type, findPlaces(type));
            }
        }
    }

    std::vector<std::size_t> findPlaces(const QString& type) {
        store::Recordset& rows =
            select(QStringLiteral("select kod from c_zariad where akronym='VYCH' and kod=") +
                   store::quoted(type));
        QStringList codes;
        for (; !rows.Eof(); rows.MoveNext())
            codes << rows.Fields(u"kod").Value().toText();
        std::vector<std::size_t> places;
        for (std::size_t place = 0; place < people_.types.size(); ++place) {
            if (codes.contains(people_.types[place].code))
                places.push_back(place);
        }
        return places;
    }

    void findRows(ReturnClient& client) const {
        if (!client.firstCare.isValid() || !client.impaired)
            return;
        const QDate birth = client.birth.toDate();
        const int age = birth.isValid() ? ageOn(people_.today, birth) : -1;
        if (age >= 0)
            client.ageRow = std::size_t(age);
        for (const QString& type : client.openTypes)
            addRows(people_.places.value(type), client.educationRows);
    }

    /// A client counts once in a row, however many placements of its type are open.
    void addRows(const std::vector<std::size_t>& places, std::vector<std::size_t>& rows) const {
        for (const std::size_t place : places) {
            if (people_.types[place].isCounted() && std::ranges::find(rows, place) == rows.end())
                rows.push_back(place);
        }
    }

    void readEmployees() {
        store::Recordset& rows =
            select(QStringLiteral("select * from zamestnanci order by priezv,meno"));
        for (; !rows.Eof(); rows.MoveNext()) {
            ReturnEmployee employee;
            employee.person = personAt(rows, true);
            employee.function = rows.Fields(u"prac_zar").Value();
            employee.row = staffRowOf(employee.function);
            employee.employment = employmentOf(rows.Fields(u"int-ext").Value());
            employee.sex = rows.Fields(u"pohlavie").Value();
            people_.employees.push_back(std::move(employee));
        }
    }

    store::DataSource& source_;
    Period period_;
    ReturnPeople people_;
    QHash<QString, std::size_t> byKey_;
};

} // namespace

ReturnPeople readPeople(store::DataSource& source, const QString& schoolYear, const QDate& today) {
    return PeopleReader(source, schoolYear, today).read();
}

} // namespace statreturn
