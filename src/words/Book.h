#pragma once

#include "store/ProgramFolder.h"
#include "words/Writer.h"

#include <QObject>

#include <memory>

namespace words {

/// All words that are kept for one register, in a file beside it that its owner alone can read. It
/// is written behind the scenes; the end of the book waits until that is done. One book is open at
/// a time.
class Book : public QObject {
    Q_OBJECT
  public:
    explicit Book(const store::ProgramFolder& folder, QObject* parent = nullptr);

    static QString fileOf(const store::ProgramFolder& folder);

    const KeptWords& all() const { return kept_; }
    /// Takes the place of what has the same id.
    void put(const Kept& kept);
    void remove(const QString& id);
    /// Forgets what was given up by Storno.
    void forgetDropped();
    /// Why words can't be kept now, or that the file was damaged and where it lies; else empty.
    const QString& fault() const { return fault_; }

  Q_SIGNALS:
    void faultChanged();

  private:
    void read();
    void putAside();
    void write();
    void setFault(const QString& fault);

    const QString path_;
    KeptWords kept_;
    QString fault_;
    /// A file that can't be read, nor put aside, is left alone.
    bool isWritable_ = true;
    std::unique_ptr<Writer> writer_;
};

} // namespace words
