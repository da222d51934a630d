#include "ModelTables.h"

namespace mkdb {

namespace {

using store::Value;

// How a member becomes a cell: what nobody filled in is Null.
Value toCell(const QString& text) {
    return text.isEmpty() ? Value() : Value(text);
}
Value toCell(const QDate& date) {
    return date.isValid() ? Value(date) : Value();
}
Value toCell(int year) {
    return year == 0 ? Value() : Value(QString::number(year));
}
Value toCell(bool flag) {
    return flag;
}

/// The cell of a member, or of a member of a member.
template <class Item, auto... Path>
Value of(const Item& item) {
    return toCell((item.*....*Path));
}

/// One of two letters, by a flag.
template <class Item, auto Flag, char16_t Yes, char16_t No>
Value letter(const Item& item) {
    return QString(QChar(item.*Flag ? Yes : No));
}

template <auto Hour>
Value twoDigits(const CareRecord& record) {
    return QStringLiteral("%1").arg(record.*Hour, 2, 10, QLatin1Char('0'));
}

Value functionCode(const Employee& employee) {
    return employee.function;
}

Value birthDate(const Client& client) {
    return client.bornUnknown ? Value() : toCell(client.born);
}

constexpr TableOf<Employee>::Column employeeColumns[] = {
    {u"idkod", of<Employee, &Employee::key>},
    {u"meno", of<Employee, &Employee::firstName>},
    {u"priezv", of<Employee, &Employee::surname>},
    {u"prac_zar", functionCode},
    {u"pohlavie", letter<Employee, &Employee::woman, u'z', u'm'>},
    {u"int-ext", letter<Employee, &Employee::internal, u'i', u'e'>},
    {u"kvalifikacia", letter<Employee, &Employee::qualified, u'a', u'n'>},
};

constexpr TableOf<Client>::Column clientColumns[] = {
    {u"idkod", of<Client, &Client::key>},
    {u"meno", of<Client, &Client::firstName>},
    {u"priezv", of<Client, &Client::surname>},
    {u"mienar", of<Client, &Client::birthPlace>},
    {u"rodcis", of<Client, &Client::birthNumber>},
    {u"datnar", birthDate},
    {u"pohlav", letter<Client, &Client::girl, u'Z', u'M'>},
    {u"katcis", of<Client, &Client::catalogueNumber>},
    {u"zdrpoi", of<Client, &Client::insurer>},
    {u"narodn", of<Client, &Client::nationality>},
    {u"stprisl", of<Client, &Client::citizenship>},
    {u"jazyk", of<Client, &Client::language>},
    {u"jaz_doma", of<Client, &Client::homeLanguage>},
    {u"ulica", of<Client, &Client::address, &Address::street>},
    {u"obec", of<Client, &Client::address, &Address::town>},
    {u"psc", of<Client, &Client::address, &Address::zip>},
    {u"skola", of<Client, &Client::school>},
    {u"odporu", of<Client, &Client::referredBy>},
    {u"datevi", of<Client, &Client::since>},
    {u"postih", of<Client, &Client::impairments>},
    {u"matka", of<Client, &Client::mother, &Parent::name>},
    {u"matvla", of<Client, &Client::mother, &Parent::own>},
    {u"matnar", of<Client, &Client::mother, &Parent::bornYear>},
    {u"matvek", of<Client, &Client::mother, &Parent::ageAtBirth>},
    {u"matvzd", of<Client, &Client::mother, &Parent::education>},
    {u"matuli", of<Client, &Client::mother, &Parent::address, &Address::street>},
    {u"matobe", of<Client, &Client::mother, &Parent::address, &Address::town>},
    {u"matpsc", of<Client, &Client::mother, &Parent::address, &Address::zip>},
    {u"mattel", of<Client, &Client::mother, &Parent::contact, &Contact::phone>},
    {u"matmail", of<Client, &Client::mother, &Parent::contact, &Contact::mail>},
    {u"matzam", of<Client, &Client::mother, &Parent::occupation>},
    {u"mataza", of<Client, &Client::mother, &Parent::employer>},
    {u"mattza", of<Client, &Client::mother, &Parent::employerPhone>},
    {u"matchor", of<Client, &Client::mother, &Parent::illness>},
    {u"matpos", of<Client, &Client::mother, &Parent::impairments>},
    {u"otec", of<Client, &Client::father, &Parent::name>},
    {u"otevla", of<Client, &Client::father, &Parent::own>},
    {u"otenar", of<Client, &Client::father, &Parent::bornYear>},
    {u"otevek", of<Client, &Client::father, &Parent::ageAtBirth>},
    {u"otevzd", of<Client, &Client::father, &Parent::education>},
    {u"oteuli", of<Client, &Client::father, &Parent::address, &Address::street>},
    {u"oteobe", of<Client, &Client::father, &Parent::address, &Address::town>},
    {u"otepsc", of<Client, &Client::father, &Parent::address, &Address::zip>},
    {u"otetel", of<Client, &Client::father, &Parent::contact, &Contact::phone>},
    {u"otemail", of<Client, &Client::father, &Parent::contact, &Contact::mail>},
    {u"otezam", of<Client, &Client::father, &Parent::occupation>},
    {u"oteaza", of<Client, &Client::father, &Parent::employer>},
    {u"otetza", of<Client, &Client::father, &Parent::employerPhone>},
    {u"otechor", of<Client, &Client::father, &Parent::illness>},
    {u"otepos", of<Client, &Client::father, &Parent::impairments>},
    {u"kon_meno", of<Client, &Client::representative, &Representative::name>},
    {u"kon_pomer", of<Client, &Client::representative, &Representative::relation>},
    {u"kon_obe", of<Client, &Client::representative, &Representative::address, &Address::town>},
    {u"kon_uli", of<Client, &Client::representative, &Representative::address, &Address::street>},
    {u"kon_psc", of<Client, &Client::representative, &Representative::address, &Address::zip>},
    {u"kon_tel", of<Client, &Client::representative, &Representative::contact, &Contact::phone>},
    {u"kon_mail", of<Client, &Client::representative, &Representative::contact, &Contact::mail>},
};

constexpr TableOf<Memo>::Column memoColumns[] = {
    {u"idkod", of<Memo, &Memo::owner>},    {u"u_dolezite", of<Memo, &Memo::important>},
    {u"poznamky", of<Memo, &Memo::notes>}, {u"ip_tvkz", of<Memo, &Memo::plan>},
    {u"u_dieta", of<Memo, &Memo::child>},  {u"u_ziak", of<Memo, &Memo::pupil>},
    {u"u_zhrn", of<Memo, &Memo::summary>},
};

constexpr TableOf<Sibling>::Column siblingColumns[] = {
    {u"idkod", of<Sibling, &Sibling::owner>},
    {u"meno", of<Sibling, &Sibling::name>},
    {u"roknar", of<Sibling, &Sibling::bornYear>},
    {u"pohlavie", letter<Sibling, &Sibling::girl, u'Z', u'M'>},
    {u"choroby", of<Sibling, &Sibling::illness>},
    {u"postih", of<Sibling, &Sibling::impairments>},
};

constexpr TableOf<Placement>::Column placementColumns[] = {
    {u"idkod", of<Placement, &Placement::owner>},  {u"akronym", of<Placement, &Placement::kind>},
    {u"nazzar", of<Placement, &Placement::code>},  {u"adresa", of<Placement, &Placement::address>},
    {u"vzar_od", of<Placement, &Placement::from>}, {u"vzar_do", of<Placement, &Placement::to>},
};

constexpr TableOf<CareRecord>::Column careColumns[] = {
    {u"idkod", of<CareRecord, &CareRecord::owner>},
    {u"datum", of<CareRecord, &CareRecord::date>},
    {u"hod_od", twoDigits<&CareRecord::fromHour>},
    {u"hod_do", twoDigits<&CareRecord::toHour>},
    {u"idkod_p", of<CareRecord, &CareRecord::worker>},
    {u"cinnost", of<CareRecord, &CareRecord::text>},
};

constexpr TableOf<Visit>::Column visitColumns[] = {
    {u"idkod", of<Visit, &Visit::owner>},
    {u"datum", of<Visit, &Visit::date>},
    {u"dat_budn", of<Visit, &Visit::next>},
};

constexpr TableOf<Note>::Column examinationColumns[] = {
    {u"idkod", of<Note, &Note::owner>},
    {u"datum", of<Note, &Note::date>},
    {u"idkod_p", of<Note, &Note::worker>},
    {u"popis", of<Note, &Note::text>},
};

constexpr TableOf<Note>::Column changeColumns[] = {
    {u"idkod", of<Note, &Note::owner>},
    {u"datum", of<Note, &Note::date>},
    {u"idkod_p", of<Note, &Note::worker>},
    {u"zmeny", of<Note, &Note::text>},
};

/// All tables of the model; made once, since a sink knows a table by its address.
struct Tables {
    TableOf<Employee> employees{u"zamestnanci", employeeColumns};
    TableOf<Client> clients{u"k_zaklad", clientColumns};
    TableOf<Memo> memos{u"k_memo", memoColumns};
    TableOf<Sibling> siblings{u"k_surodenci", siblingColumns};
    TableOf<Placement> placements{u"k_zariad", placementColumns};
    TableOf<Note> examinations{u"k_vysetrenie", examinationColumns};
    TableOf<Note> changes{u"k_zaznam_zmeny", changeColumns};
    TableOf<CareRecord> care{u"k_zaznam_spc", careColumns};
    TableOf<Visit> visits{u"k_navstevy", visitColumns};
};

const Tables& tables() {
    static const Tables tables;
    return tables;
}

} // namespace

void writeEmployee(const Employee& employee, RowSink& sink) {
    tables().employees.write(employee, sink);
}

void writeClient(const Client& client, RowSink& sink) {
    const Tables& to = tables();
    to.clients.write(client, sink);
    to.memos.write(client.memo, sink);
    to.siblings.writeAll(client.siblings, sink);
    to.placements.writeAll(client.placements, sink);
    to.examinations.writeAll(client.examinations, sink);
    to.changes.writeAll(client.changes, sink);
    to.care.writeAll(client.care, sink);
    to.visits.writeAll(client.visits, sink);
}

} // namespace mkdb
