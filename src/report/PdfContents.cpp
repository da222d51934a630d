#include "report/PdfContents.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

#include <exception>
#include <vector>

namespace report {

namespace {

using Object = QPDFObjectHandle;

Object unicode(const QString& text) {
    return Object::newUnicodeString(text.toStdString());
}

/// The entry of a bookmark in the outline, not yet linked to those beside it.
Object entryOf(QPDF& pdf, const Bookmark& bookmark, const Object& page, const Object& outline) {
    const Object entry = pdf.makeIndirectObject(Object::newDictionary());
    Object dictionary = entry;
    dictionary.replaceKey("/Title", unicode(bookmark.title));
    dictionary.replaceKey("/Parent", outline);
    dictionary.replaceKey("/Dest", Object::newArray({page, Object::newName("/Fit")}));
    return entry;
}

void link(std::vector<Object>& entries) {
    for (std::size_t i = 1; i < entries.size(); ++i) {
        entries[i - 1].replaceKey("/Next", entries[i]);
        entries[i].replaceKey("/Prev", entries[i - 1]);
    }
}

void addOutline(QPDF& pdf, const std::vector<Bookmark>& bookmarks) {
    const std::vector<Object>& pages = pdf.getAllPages();
    Object outline = pdf.makeIndirectObject(Object::newDictionary());
    std::vector<Object> entries;
    for (const Bookmark& bookmark : bookmarks)
        entries.push_back(entryOf(pdf, bookmark, pages.at(bookmark.page), outline));
    link(entries);
    outline.replaceKey("/Type", Object::newName("/Outlines"));
    outline.replaceKey("/First", entries.front());
    outline.replaceKey("/Last", entries.back());
    outline.replaceKey("/Count", Object::newInteger(static_cast<long long>(entries.size())));
    pdf.getRoot().replaceKey("/Outlines", outline);
    pdf.getRoot().replaceKey("/PageMode", Object::newName("/UseOutlines"));
}

QByteArray written(QPDF& pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.write();
    const auto buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), qsizetype(buffer->getSize())};
}

} // namespace

std::optional<QByteArray> withContents(const QByteArray& pdf, const QString& title,
                                       const std::vector<Bookmark>& bookmarks) {
    try {
        QPDF file;
        file.processMemoryFile("", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        Object root = file.getRoot();
        root.replaceKey("/Lang", unicode(QStringLiteral("sk")));
        root.replaceKey("/ViewerPreferences", Object::parse("<< /DisplayDocTitle true >>"));
        // The writer lets a letter whose code holds a line end, as "č", become another one.
        file.getTrailer().getKey("/Info").replaceKey("/Title", unicode(title));
        if (!bookmarks.empty())
            addOutline(file, bookmarks);
        return written(file);
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace report
