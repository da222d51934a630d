#pragma once

#include <QTranslator>

class QCoreApplication;

namespace forms {

/// Slovak captions of the standard buttons, in the contexts that Qt asks for them and that its own
/// Slovak catalogue leaves out.
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
/// @return false when Qt's Slovak catalogue is not installed; the standard buttons are Slovak still
bool installSlovakTexts(QCoreApplication& application);

} // namespace forms
