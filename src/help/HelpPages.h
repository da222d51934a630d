#pragma once

#include <QString>
#include <QStringList>

#include <vector>

class QWidget;

namespace help {

/// A page of help: HTML that names in its head, in `<meta name="screens">`, the object names of the
/// widgets that it is about, with blanks between.
struct HelpPage {
    QString title;
    QString html;
    QStringList screens;
    /// The words of the page as they are searched: no tags, no accents, no case.
    QString words;

    /// Whether all words of a question stand in the page, in any order.
    bool answers(const QString& question) const;
};

/// All pages, in the order of the files' names.
const std::vector<HelpPage>& helpPages();

/// The index of the page about the innermost widget that has one, outwards from `widget`; that of
/// the first page when none has.
std::size_t helpPageOf(const QWidget* widget);

} // namespace help
