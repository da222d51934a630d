#include "store/sql/SqliteText.h"

#include <algorithm>
#include <vector>

namespace store::sql {

QString sqlText(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\'', QStringLiteral("''"));
    return u'\'' + escaped + u'\'';
}

bool isConstantNumber(const QString& term) {
    static constexpr QStringView signs = u"0123456789.eE+-*() ";
    return std::ranges::all_of(term, [](QChar c) { return signs.contains(c); });
}

int parserLoad(const QString& sql) {
    constexpr int ofStatement = 10;
    constexpr int ofParenthesis = 5;
    constexpr int ofSelect = 15;
    std::vector<int> open;
    int load = ofStatement;
    int greatest = load;
    const QStringView view(sql);
    for (qsizetype i = 0; i < view.size(); ++i) {
        const QChar c = view[i];
        if (c == u'\'' || c == u'"')
            i = view.indexOf(c, i + 1);
        const bool isCase = view.sliced(i).startsWith(u"CASE ");
        const bool isEnd = view.sliced(i).startsWith(u" END");
        if (c == u'(' || isCase) {
            open.push_back(view.sliced(i).startsWith(u"(SELECT") ? ofSelect : ofParenthesis);
            load += open.back();
        } else if ((c == u')' || isEnd) && !open.empty()) {
            load -= open.back();
            open.pop_back();
        }
        greatest = std::max(greatest, load);
    }
    return greatest;
}

} // namespace store::sql
