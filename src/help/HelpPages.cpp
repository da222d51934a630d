#include "help/HelpPages.h"

#include "forms/Letters.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QWidget>

#include <algorithm>

// At file scope, as the macro asks.
static void takeHelpTexts() {
    Q_INIT_RESOURCE(pomoc);
}

namespace help {

namespace {

QString searched(const QString& text) {
    return forms::withoutAccents(text).toLower();
}

QString firstCapture(const QString& html, const QString& pattern) {
    return QRegularExpression(pattern).match(html).captured(1);
}

HelpPage readPage(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString html = QString::fromUtf8(file.readAll());
    return {.title = firstCapture(html, QStringLiteral("<title>(.*)</title>")),
            .html = html,
            .screens = firstCapture(html, QStringLiteral("name=\"screens\" content=\"(.*)\""))
                           .split(u' ', Qt::SkipEmptyParts),
            .words = searched(QTextDocumentFragment::fromHtml(html).toPlainText())};
}

std::vector<HelpPage> readPages() {
    takeHelpTexts();
    std::vector<HelpPage> pages;
    const QDir folder(QStringLiteral(":/pomoc"));
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        pages.push_back(readPage(folder.filePath(name)));
    return pages;
}

} // namespace

bool HelpPage::answers(const QString& question) const {
    const QStringList asked = searched(question).split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(asked, [this](const QString& word) { return words.contains(word); });
}

const std::vector<HelpPage>& helpPages() {
    static const std::vector<HelpPage> pages = readPages();
    return pages;
}

std::size_t helpPageOf(const QWidget* widget) {
    const auto& pages = helpPages();
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const auto found = std::ranges::find_if(pages, [widget](const HelpPage& page) {
            return page.screens.contains(widget->objectName());
        });
        if (found != pages.end())
            return static_cast<std::size_t>(found - pages.begin());
    }
    return 0;
}

} // namespace help
