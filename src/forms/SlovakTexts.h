#pragma once

#include <QTranslator>

class QCoreApplication;

namespace forms {

/// The Slovak texts of Qt that its own Slovak catalogue leaves out. To be asked after that one.
class SlovakTexts : public QTranslator {
    Q_OBJECT
  public:
    using QTranslator::QTranslator;
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }
};

/// Makes the dialogs of Qt speak Slovak, and numbers and dates follow the Slovak locale. The
/// translators belong to the application.
/// @return false when Qt's Slovak catalogue is not installed; what it leaves out is Slovak still
bool installSlovakTexts(QCoreApplication& application);

} // namespace forms
