#include "datacheck/Checker.h"

#include "store/Schema.h"
#include "store/Sql.h"

#include <QStringList>

namespace datacheck {

namespace {

/// A column that holds the code of a list.
struct CodeColumn {
    QStringView table;
    QStringView column;
    QStringView list;
    QStringView code;
    /// What else the list's row must share.
    QStringView also;
    QStringView caption;
};

constexpr CodeColumn codeColumns[] = {
    {u"k_zaklad", u"zdrpoi", u"c_zdrpoi", u"kod", {}, u"zdravotnej poisťovne"},
    {u"k_zaklad", u"narodn", u"c_narodn", u"kod", {}, u"národnosti"},
    {u"k_zaklad", u"stprisl", u"c_iczeme", u"kod", {}, u"štátnej príslušnosti"},
    {u"k_zaklad", u"jazyk", u"c_jazyk", u"kod", {}, u"jazyka, ktorým klient komunikuje"},
    {u"k_zaklad", u"jaz_doma", u"c_jazyk", u"kod", {}, u"jazyka, ktorým klient komunikuje doma"},
    {u"k_zariad", u"nazzar", u"c_zariad", u"kod", u"akronym", u"zariadenia"},
    {u"zamestnanci", u"prac_zar", u"c_funkcie", u"fc_idkod", {}, u"pracovného zaradenia"},
};

/// What a date column is called on the card.
struct DateCaption {
    QStringView column;
    QStringView caption;
};

constexpr DateCaption dateCaptions[] = {
    {u"datnar", u"dátum narodenia"},   {u"datevi", u"dátum evidencie"},
    {u"vzar_od", u"v zariadení od"},   {u"vzar_do", u"v zariadení do"},
    {u"dat_budn", u"budúca návšteva"}, {u"datum", u"dátum"},
};

QString captionOf(QStringView column) {
    for (const DateCaption& known : dateCaptions)
        if (column == known.column)
            return known.caption.toString();
    return column.toString();
}

QString codeQuery(const CodeColumn& code) {
    const QString both =
        code.also.isEmpty()
            ? QString()
            : QStringLiteral(" and %1.%3 = %2.%3").arg(code.table, code.list, code.also);
    const QString column = QStringLiteral("%1.%2").arg(code.table, code.column);
    return QStringLiteral("select %1.idkod as kluc, %2 as hodnota from %1 left join %3 on "
                          "%2 = %3.%4%5 where (isnull(%3.nazov) or trim(%3.nazov) = '') and "
                          "isnull(%2) = false and "
                          "trim(%2 & '') <> ''")
        .arg(code.table, column, code.list, code.code, both);
}

QString textOf(store::Recordset& row, QStringView column) {
    return row.Fields(column).Value().toText();
}

QString shownKey(const QString& key) {
    return key.trimmed().isEmpty() ? QStringLiteral("(prázdny)") : key.trimmed();
}

} // namespace

/// Keeps the findings of one kind from flooding the list.
class Checker::Counted {
  public:
    explicit Counted(std::vector<Finding>& findings) : findings_(findings) {}
    ~Counted() {
        if (count_ > mostOfAKind)
            findings_.push_back({QStringLiteral("Ďalšie nálezy rovnakého druhu ako predchádzajúci: "
                                                "po ich náprave skontrolujte údaje znova"),
                                 {}});
    }
    Q_DISABLE_COPY_MOVE(Counted)

    bool mayAdd() { return ++count_ <= mostOfAKind; }

  private:
    std::vector<Finding>& findings_;
    int count_ = 0;
};

Checker::Checker(store::Database& database) : database_(database) {
    for (const RecordTable& table : recordTables())
        steps_.emplace_back([this, &table] { lostClients(table); });
    for (const RecordTable& table : recordTables())
        if (table.hasWorker) {
            steps_.emplace_back([this, &table] { lostWorkers(table); });
            steps_.emplace_back([this, &table] { missingWorkers(table); });
        }
    steps_.emplace_back([this] { missingKeys(); });
    steps_.emplace_back([this] { missingTexts(); });
    steps_.emplace_back([this] { doubleTexts(); });
    steps_.emplace_back([this] { doubleNumbers(); });
    for (const store::TableDef& table : store::schema())
        for (const store::ColumnDef& column : table.columns)
            if (column.type == store::ColumnType::Date)
                steps_.emplace_back([this, &table, &column] {
                    noDates(QString::fromUtf16(table.name), QString::fromUtf16(column.name));
                });
    for (const CodeColumn& code : codeColumns)
        steps_.emplace_back([this, &code] {
            namelessCodes(codeQuery(code), code.caption.toString(),
                          code.table == u"zamestnanci" ? Remedy::OpenEmployee : Remedy::OpenClient);
        });
}

Checker::Rows Checker::open(const QString& sql) {
    return database_.OpenRecordset(sql);
}

Finding& Checker::grouped(const QString& group, const std::function<Finding()>& make) {
    const auto known = groups_.find(group);
    if (known != groups_.end())
        return findings_[known.value()];
    groups_[group] = findings_.size();
    return findings_.emplace_back(make());
}

void Checker::lostClients(const RecordTable& table) {
    Counted count(findings_);
    const auto keys =
        open(QStringLiteral("select distinct %1.idkod as kluc from %1 left join k_zaklad on "
                            "%1.idkod = k_zaklad.idkod where isnull(k_zaklad.idkod)")
                 .arg(table.name));
    for (; !keys->Eof(); keys->MoveNext()) {
        const store::Value key = keys->Fields(u"kluc").Value();
        if (key.isNull())
            addWithoutKey(table, count);
        else
            addLost(table, key.toText(), count);
    }
}

/// Rows without any key may belong to different clients.
void Checker::addWithoutKey(const RecordTable& table, Counted& count) {
    const Rows rows = open(QStringLiteral("select * from %1 where isnull(idkod)").arg(table.name));
    for (; !rows->Eof() && count.mayAdd(); rows->MoveNext())
        findings_.push_back({table.one.toString() + QStringLiteral(" bez kľúča klienta"),
                             {},
                             Remedy::GiveClient,
                             {},
                             {{&table, rows, rows->Bookmark()}}});
}

/// Rows of one lost key belong to one client, whatever their tables.
void Checker::addLost(const RecordTable& table, const QString& key, Counted& count) {
    if (!count.mayAdd())
        return;
    const Rows rows = open(
        QStringLiteral("select * from %1 where idkod = %2").arg(table.name, store::quoted(key)));
    Finding& finding = grouped(u'k' + key.trimmed().toUpper(), [&] {
        return Finding{
            QStringLiteral("Záznamy s kľúčom %1, ktorý nemá nijaký klient:").arg(shownKey(key)),
            {},
            Remedy::GiveClient};
    });
    const std::size_t before = finding.rows.size();
    for (; !rows->Eof(); rows->MoveNext())
        finding.rows.push_back({&table, rows, rows->Bookmark()});
    finding.what += (before > 0 ? QStringLiteral(", ") : QStringLiteral(" ")) +
                    table.many.toString() + QStringLiteral(" %1").arg(finding.rows.size() - before);
}

void Checker::lostWorkers(const RecordTable& table) {
    Counted count(findings_);
    const auto keys =
        open(QStringLiteral("select distinct %1.idkod_p as kluc from %1 left join zamestnanci on "
                            "%1.idkod_p = zamestnanci.idkod where isnull(zamestnanci.idkod) and "
                            "isnull(%1.idkod_p) = false and trim(%1.idkod_p) <> ''")
                 .arg(table.name));
    for (; !keys->Eof() && count.mayAdd(); keys->MoveNext()) {
        const QString key = textOf(*keys, u"kluc");
        const Rows rows = open(QStringLiteral("select * from %1 where idkod_p = %2")
                                   .arg(table.name, store::quoted(key)));
        Finding finding{QStringLiteral("Záznamy s kľúčom pracovníka %1, ktorý nemá nijaký "
                                       "zamestnanec: %2 %3")
                            .arg(shownKey(key), table.many.toString())
                            .arg(rows->RecordCount()),
                        {},
                        Remedy::GiveWorker};
        for (; !rows->Eof(); rows->MoveNext())
            finding.rows.push_back({&table, rows, rows->Bookmark()});
        findings_.push_back(std::move(finding));
    }
}

void Checker::missingWorkers(const RecordTable& table) {
    Counted count(findings_);
    const Rows rows = open(QStringLiteral("select * from %1 where isnull(idkod_p) or "
                                          "trim(idkod_p) = '' order by idkod")
                               .arg(table.name));
    for (; !rows->Eof(); rows->MoveNext()) {
        const QString key = textOf(*rows, u"idkod");
        const QString group = table.name.toString() + key.trimmed().toUpper();
        if (!groups_.contains(group) && !count.mayAdd())
            return;
        grouped(group, [&] {
            return Finding{QStringLiteral("Záznamy bez pracovníka: ") + table.many.toString(),
                           client(key), Remedy::GiveWorker, key};
        }).rows.push_back({&table, rows, rows->Bookmark()});
    }
}

void Checker::missingKeys() {
    Counted count(findings_);
    const Rows rows =
        open(QStringLiteral("select * from k_zaklad where isnull(idkod) or trim(idkod) = ''"));
    for (; !rows->Eof() && count.mayAdd(); rows->MoveNext())
        findings_.push_back({QStringLiteral("Klient nemá kľúč, jeho karta sa nedá otvoriť"),
                             textOf(*rows, u"meno") + u' ' + textOf(*rows, u"priezv"),
                             Remedy::MakeKey,
                             {},
                             {{&clientTable, rows, rows->Bookmark()}}});
}

void Checker::missingTexts() {
    Counted count(findings_);
    const auto rows = open(QStringLiteral(
        "select k_zaklad.idkod as kluc from k_zaklad left join k_memo on k_zaklad.idkod = "
        "k_memo.idkod where isnull(k_memo.idkod) and isnull(k_zaklad.idkod) = false"));
    for (; !rows->Eof() && count.mayAdd(); rows->MoveNext()) {
        const QString key = textOf(*rows, u"kluc");
        findings_.push_back(
            {QStringLiteral("Klient nemá riadok textov, jeho karta sa nedá upraviť"), client(key),
             Remedy::AddTexts, key});
    }
}

void Checker::doubleTexts() {
    Counted count(findings_);
    const auto keys =
        open(QStringLiteral("select idkod as kluc, count(*) as pocet from k_memo where "
                            "isnull(idkod) = false group by idkod having "
                            "count(*) > 1"));
    for (; !keys->Eof() && count.mayAdd(); keys->MoveNext()) {
        const QString key = textOf(*keys, u"kluc");
        findings_.push_back({QStringLiteral("Klient má viac riadkov textov, karta ukáže len jeden"),
                             client(key), Remedy::JoinTexts, key});
    }
}

void Checker::doubleNumbers() {
    Counted count(findings_);
    const auto numbers = open(QStringLiteral(
        "select trim(katcis) as cislo, count(*) as pocet from k_zaklad where isnull(katcis) = "
        "false and trim(katcis) <> '' group by trim(katcis) having count(*) > 1"));
    for (; !numbers->Eof(); numbers->MoveNext())
        addDoubleNumber(textOf(*numbers, u"cislo"), count);
}

void Checker::addDoubleNumber(const QString& number, Counted& count) {
    const auto rows = open(QStringLiteral("select idkod from k_zaklad where trim(katcis) = ") +
                           store::quoted(number));
    const qint64 owners = rows->RecordCount();
    for (; !rows->Eof() && count.mayAdd(); rows->MoveNext()) {
        const QString key = textOf(*rows, u"idkod");
        findings_.push_back(
            {QStringLiteral("Katalógové číslo %1 majú viacerí klienti: %2").arg(number).arg(owners),
             client(key), Remedy::OpenClient, key});
    }
}

void Checker::noDates(const QString& table, const QString& column) {
    Counted count(findings_);
    const auto rows = open(QStringLiteral("select idkod as kluc, %2 as hodnota from %1 where "
                                          "isnull(%2) = false and isdate(%2) = false")
                               .arg(table, column));
    for (; !rows->Eof() && count.mayAdd(); rows->MoveNext()) {
        const QString key = textOf(*rows, u"kluc");
        const QString who = client(key);
        findings_.push_back({QStringLiteral("„%1“ nie je dátum v kalendári: %2")
                                 .arg(textOf(*rows, u"hodnota"), captionOf(column)),
                             who, who.isEmpty() ? Remedy::None : Remedy::OpenClient, key});
    }
}

void Checker::namelessCodes(const QString& sql, const QString& what, Remedy remedy) {
    Counted count(findings_);
    const auto rows = open(sql);
    for (; !rows->Eof() && count.mayAdd(); rows->MoveNext()) {
        const QString key = textOf(*rows, u"kluc");
        const QString who = remedy == Remedy::OpenEmployee
                                ? person(QStringLiteral("zamestnanci"), key)
                                : client(key);
        findings_.push_back({QStringLiteral("Kód „%1“ nemá v číselníku názov: kód %2")
                                 .arg(textOf(*rows, u"hodnota"), what),
                             who, who.isEmpty() ? Remedy::None : remedy, key});
    }
}

QString Checker::client(const QString& key) {
    return person(QStringLiteral("k_zaklad"), key);
}

QString Checker::person(const QString& table, const QString& key) {
    const auto rows = open(QStringLiteral("select meno, priezv from %1 where idkod = %2")
                               .arg(table, store::quoted(key)));
    if (rows->Eof())
        return {};
    return QStringLiteral("%1 %2 (%3)")
        .arg(textOf(*rows, u"meno").trimmed(), textOf(*rows, u"priezv").trimmed(), key.trimmed());
}

} // namespace datacheck
