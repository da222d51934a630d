#include "words/Book.h"

#include "store/EngineError.h"
#include "store/Files.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace words {

Book::Book(const store::ProgramFolder& folder, QObject* parent)
    : QObject(parent), path_(fileOf(folder)),
      writer_(std::make_unique<Writer>(path_, [this](const QString& fault) {
          QMetaObject::invokeMethod(
              this,
              [this, fault] {
                  setFault(fault.isEmpty() ? fault
                                           : QStringLiteral("Rozpísané slová sa teraz nedajú "
                                                            "priebežne uchovať: ") +
                                                 fault);
              },
              Qt::QueuedConnection);
      })) {
    read();
}

QString Book::fileOf(const store::ProgramFolder& folder) {
    return store::behindLinks(folder.database()) + QStringLiteral(".slova");
}

void Book::read() {
    QFile file(path_);
    if (!file.exists())
        return;
    if (file.open(QIODevice::ReadOnly)) {
        if (auto kept = fromFile(file.readAll())) {
            kept_ = std::move(*kept);
            return;
        }
        file.close();
    }
    putAside();
}

/// It may hold what somebody else can still read.
void Book::putAside() {
    QString aside = path_ + QStringLiteral(".chybny");
    for (int n = 2; QFileInfo::exists(aside); ++n)
        aside = QStringLiteral("%1.chybny_%2").arg(path_).arg(n);
    try {
        store::moveToFreeName(path_, aside);
        fault_ = QStringLiteral("Súbor s rozpísanými slovami sa nedá prečítať, odložil sa ako %1.")
                     .arg(QFileInfo(aside).fileName());
    } catch (const store::EngineError& error) {
        isWritable_ = false;
        fault_ = QStringLiteral("Súbor s rozpísanými slovami %1 sa nedá prečítať ani odložiť: ")
                     .arg(QFileInfo(path_).fileName()) +
                 error.description();
    }
}

void Book::put(const Kept& kept) {
    const auto found = std::ranges::find(kept_, kept.id, &Kept::id);
    if (found == kept_.end())
        kept_.push_back(kept);
    else
        *found = kept;
    write();
}

void Book::remove(const QString& id) {
    if (std::erase_if(kept_, [&](const Kept& kept) { return kept.id == id; }) > 0)
        write();
}

void Book::forgetDropped() {
    if (std::erase_if(kept_, [](const Kept& kept) { return kept.isDropped; }) > 0)
        write();
}

void Book::write() {
    if (isWritable_)
        writer_->write(kept_);
}

void Book::setFault(const QString& fault) {
    if (fault == fault_)
        return;
    fault_ = fault;
    Q_EMIT faultChanged();
}

} // namespace words
