#include "ModelTables.h"

namespace mkdb {

namespace {

using store::Value;

Value text(const QString& value) {
    return value.isEmpty() ? Value() : Value(value);
}
Value date(const QDate& value) {
    return value.isValid() ? Value(value) : Value();
}
Value digits(int value) {
    return value == 0 ? Value() : Value(QString::number(value));
}
Value hour(int value) {
    return Value(QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0')));
}
Value clientSex(bool girl) {
    return Value(girl ? QStringLiteral("Z") : QStringLiteral("M"));
}

const TableOf<Employee>& employees() {
    static const TableOf<Employee> table(
        u"zamestnanci",
        {
            {u"idkod",
             [](const Employee& e) {
                 return text(e.key);
             }},
            {u"meno",
             [](const Employee& e) {
                 return text(e.firstName);
             }},
            {u"priezv",
             [](const Employee& e) {
                 return text(e.surname);
             }},
            {u"prac_zar",
             [](const Employee& e) {
                 return Value(e.function);
             }},
            {u"pohlavie",
             [](const Employee& e) {
                 return text(e.woman ? QStringLiteral("z") : QStringLiteral("m"));
             }},
            {u"int-ext",
             [](const Employee& e) {
                 return text(e.internal ? QStringLiteral("i") : QStringLiteral("e"));
             }},
            {u"kvalifikacia",
             [](const Employee& e) {
                 return text(e.qualified ? QStringLiteral("a") : QStringLiteral("n"));
             }},
        });
    return table;
}

const TableOf<Client>& basics() {
    static const TableOf<Client> table(u"k_zaklad",
                                       {
                                           {u"idkod",
                                            [](const Client& c) {
                                                return text(c.key);
                                            }},
                                           {u"meno",
                                            [](const Client& c) {
                                                return text(c.firstName);
                                            }},
                                           {u"priezv",
                                            [](const Client& c) {
                                                return text(c.surname);
                                            }},
                                           {u"mienar",
                                            [](const Client& c) {
                                                return text(c.birthPlace);
                                            }},
                                           {u"rodcis",
                                            [](const Client& c) {
                                                return text(c.birthNumber);
                                            }},
                                           {u"datnar",
                                            [](const Client& c) {
                                                return c.bornUnknown ? Value() : date(c.born);
                                            }},
                                           {u"pohlav",
                                            [](const Client& c) {
                                                return clientSex(c.girl);
                                            }},
                                           {u"katcis",
                                            [](const Client& c) {
                                                return text(c.catalogueNumber);
                                            }},
                                           {u"zdrpoi",
                                            [](const Client& c) {
                                                return text(c.insurer);
                                            }},
                                           {u"narodn",
                                            [](const Client& c) {
                                                return text(c.nationality);
                                            }},
                                           {u"stprisl",
                                            [](const Client& c) {
                                                return text(c.citizenship);
                                            }},
                                           {u"jazyk",
                                            [](const Client& c) {
                                                return text(c.language);
                                            }},
                                           {u"jaz_doma",
                                            [](const Client& c) {
                                                return text(c.homeLanguage);
                                            }},
                                           {u"ulica",
                                            [](const Client& c) {
                                                return text(c.address.street);
                                            }},
                                           {u"obec",
                                            [](const Client& c) {
                                                return text(c.address.town);
                                            }},
                                           {u"psc",
                                            [](const Client& c) {
                                                return text(c.address.zip);
                                            }},
                                           {u"skola",
                                            [](const Client& c) {
                                                return text(c.school);
                                            }},
                                           {u"odporu",
                                            [](const Client& c) {
                                                return text(c.referredBy);
                                            }},
                                           {u"datevi",
                                            [](const Client& c) {
                                                return date(c.since);
                                            }},
                                           {u"postih",
                                            [](const Client& c) {
                                                return text(c.impairments);
                                            }},
                                           {u"matka",
                                            [](const Client& c) {
                                                return text(c.mother.name);
                                            }},
                                           {u"matvla",
                                            [](const Client& c) {
                                                return Value(c.mother.own);
                                            }},
                                           {u"matnar",
                                            [](const Client& c) {
                                                return digits(c.mother.bornYear);
                                            }},
                                           {u"matvek",
                                            [](const Client& c) {
                                                return digits(c.mother.ageAtBirth);
                                            }},
                                           {u"matvzd",
                                            [](const Client& c) {
                                                return text(c.mother.education);
                                            }},
                                           {u"matuli",
                                            [](const Client& c) {
                                                return text(c.mother.address.street);
                                            }},
                                           {u"matobe",
                                            [](const Client& c) {
                                                return text(c.mother.address.town);
                                            }},
                                           {u"matpsc",
                                            [](const Client& c) {
                                                return text(c.mother.address.zip);
                                            }},
                                           {u"mattel",
                                            [](const Client& c) {
                                                return text(c.mother.contact.phone);
                                            }},
                                           {u"matmail",
                                            [](const Client& c) {
                                                return text(c.mother.contact.mail);
                                            }},
                                           {u"matzam",
                                            [](const Client& c) {
                                                return text(c.mother.occupation);
                                            }},
                                           {u"mataza",
                                            [](const Client& c) {
                                                return text(c.mother.employer);
                                            }},
                                           {u"mattza",
                                            [](const Client& c) {
                                                return text(c.mother.employerPhone);
                                            }},
                                           {u"matchor",
                                            [](const Client& c) {
                                                return text(c.mother.illness);
                                            }},
                                           {u"matpos",
                                            [](const Client& c) {
                                                return text(c.mother.impairments);
                                            }},
                                           {u"otec",
                                            [](const Client& c) {
                                                return text(c.father.name);
                                            }},
                                           {u"otevla",
                                            [](const Client& c) {
                                                return Value(c.father.own);
                                            }},
                                           {u"otenar",
                                            [](const Client& c) {
                                                return digits(c.father.bornYear);
                                            }},
                                           {u"otevek",
                                            [](const Client& c) {
                                                return digits(c.father.ageAtBirth);
                                            }},
                                           {u"otevzd",
                                            [](const Client& c) {
                                                return text(c.father.education);
                                            }},
                                           {u"oteuli",
                                            [](const Client& c) {
                                                return text(c.father.address.street);
                                            }},
                                           {u"oteobe",
                                            [](const Client& c) {
                                                return text(c.father.address.town);
                                            }},
                                           {u"otepsc",
                                            [](const Client& c) {
                                                return text(c.father.address.zip);
                                            }},
                                           {u"otetel",
                                            [](const Client& c) {
                                                return text(c.father.contact.phone);
                                            }},
                                           {u"otemail",
                                            [](const Client& c) {
                                                return text(c.father.contact.mail);
                                            }},
                                           {u"otezam",
                                            [](const Client& c) {
                                                return text(c.father.occupation);
                                            }},
                                           {u"oteaza",
                                            [](const Client& c) {
                                                return text(c.father.employer);
                                            }},
                                           {u"otetza",
                                            [](const Client& c) {
                                                return text(c.father.employerPhone);
                                            }},
                                           {u"otechor",
                                            [](const Client& c) {
                                                return text(c.father.illness);
                                            }},
                                           {u"otepos",
                                            [](const Client& c) {
                                                return text(c.father.impairments);
                                            }},
                                           {u"kon_meno",
                                            [](const Client& c) {
                                                return text(c.representative.name);
                                            }},
                                           {u"kon_pomer",
                                            [](const Client& c) {
                                                return text(c.representative.relation);
                                            }},
                                           {u"kon_obe",
                                            [](const Client& c) {
                                                return text(c.representative.address.town);
                                            }},
                                           {u"kon_uli",
                                            [](const Client& c) {
                                                return text(c.representative.address.street);
                                            }},
                                           {u"kon_psc",
                                            [](const Client& c) {
                                                return text(c.representative.address.zip);
                                            }},
                                           {u"kon_tel",
                                            [](const Client& c) {
                                                return text(c.representative.contact.phone);
                                            }},
                                           {u"kon_mail",
                                            [](const Client& c) {
                                                return text(c.representative.contact.mail);
                                            }},
                                       });
    return table;
}

const TableOf<Memo>& memos() {
    static const TableOf<Memo> table(u"k_memo", {
                                                    {u"idkod",
                                                     [](const Memo& m) {
                                                         return text(m.owner);
                                                     }},
                                                    {u"u_dolezite",
                                                     [](const Memo& m) {
                                                         return text(m.important);
                                                     }},
                                                    {u"poznamky",
                                                     [](const Memo& m) {
                                                         return text(m.notes);
                                                     }},
                                                    {u"ip_tvkz",
                                                     [](const Memo& m) {
                                                         return text(m.plan);
                                                     }},
                                                    {u"u_dieta",
                                                     [](const Memo& m) {
                                                         return text(m.child);
                                                     }},
                                                    {u"u_ziak",
                                                     [](const Memo& m) {
                                                         return text(m.pupil);
                                                     }},
                                                    {u"u_zhrn",
                                                     [](const Memo& m) {
                                                         return text(m.summary);
                                                     }},
                                                });
    return table;
}

const TableOf<Sibling>& siblings() {
    static const TableOf<Sibling> table(u"k_surodenci", {
                                                            {u"idkod",
                                                             [](const Sibling& s) {
                                                                 return text(s.owner);
                                                             }},
                                                            {u"meno",
                                                             [](const Sibling& s) {
                                                                 return text(s.name);
                                                             }},
                                                            {u"roknar",
                                                             [](const Sibling& s) {
                                                                 return digits(s.bornYear);
                                                             }},
                                                            {u"pohlavie",
                                                             [](const Sibling& s) {
                                                                 return clientSex(s.girl);
                                                             }},
                                                            {u"choroby",
                                                             [](const Sibling& s) {
                                                                 return text(s.illness);
                                                             }},
                                                            {u"postih",
                                                             [](const Sibling& s) {
                                                                 return text(s.impairments);
                                                             }},
                                                        });
    return table;
}

const TableOf<Placement>& placements() {
    static const TableOf<Placement> table(u"k_zariad", {
                                                           {u"idkod",
                                                            [](const Placement& p) {
                                                                return text(p.owner);
                                                            }},
                                                           {u"akronym",
                                                            [](const Placement& p) {
                                                                return text(p.kind);
                                                            }},
                                                           {u"nazzar",
                                                            [](const Placement& p) {
                                                                return text(p.code);
                                                            }},
                                                           {u"adresa",
                                                            [](const Placement& p) {
                                                                return text(p.address);
                                                            }},
                                                           {u"vzar_od",
                                                            [](const Placement& p) {
                                                                return date(p.from);
                                                            }},
                                                           {u"vzar_do",
                                                            [](const Placement& p) {
                                                                return date(p.to);
                                                            }},
                                                       });
    return table;
}

TableOf<Note> noteTable(const char16_t* table, const char16_t* textColumn) {
    return {table,
            {
                {u"idkod",
                 [](const Note& n) {
                     return text(n.owner);
                 }},
                {u"datum",
                 [](const Note& n) {
                     return date(n.date);
                 }},
                {u"idkod_p",
                 [](const Note& n) {
                     return text(n.worker);
                 }},
                {textColumn,
                 [](const Note& n) {
                     return text(n.text);
                 }},
            }};
}

const TableOf<Note>& examinations() {
    static const TableOf<Note> table = noteTable(u"k_vysetrenie", u"popis");
    return table;
}

const TableOf<Note>& changes() {
    static const TableOf<Note> table = noteTable(u"k_zaznam_zmeny", u"zmeny");
    return table;
}

const TableOf<CareRecord>& careRecords() {
    static const TableOf<CareRecord> table(u"k_zaznam_spc", {
                                                                {u"idkod",
                                                                 [](const CareRecord& r) {
                                                                     return text(r.owner);
                                                                 }},
                                                                {u"datum",
                                                                 [](const CareRecord& r) {
                                                                     return date(r.date);
                                                                 }},
                                                                {u"hod_od",
                                                                 [](const CareRecord& r) {
                                                                     return hour(r.fromHour);
                                                                 }},
                                                                {u"hod_do",
                                                                 [](const CareRecord& r) {
                                                                     return hour(r.toHour);
                                                                 }},
                                                                {u"idkod_p",
                                                                 [](const CareRecord& r) {
                                                                     return text(r.worker);
                                                                 }},
                                                                {u"cinnost",
                                                                 [](const CareRecord& r) {
                                                                     return text(r.text);
                                                                 }},
                                                            });
    return table;
}

const TableOf<Visit>& visits() {
    static const TableOf<Visit> table(u"k_navstevy", {
                                                         {u"idkod",
                                                          [](const Visit& v) {
                                                              return text(v.owner);
                                                          }},
                                                         {u"datum",
                                                          [](const Visit& v) {
                                                              return date(v.date);
                                                          }},
                                                         {u"dat_budn",
                                                          [](const Visit& v) {
                                                              return date(v.next);
                                                          }},
                                                     });
    return table;
}

} // namespace

void writeEmployee(const Employee& employee, RowSink& sink) {
    employees().write(employee, sink);
}

void writeClient(const Client& client, RowSink& sink) {
    basics().write(client, sink);
    memos().write(client.memo, sink);
    siblings().writeAll(client.siblings, sink);
    placements().writeAll(client.placements, sink);
    examinations().writeAll(client.examinations, sink);
    changes().writeAll(client.changes, sink);
    careRecords().writeAll(client.care, sink);
    visits().writeAll(client.visits, sink);
}

} // namespace mkdb
