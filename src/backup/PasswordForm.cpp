#include "backup/PasswordForm.h"

#include "forms/Metrics.h"
#include "forms/WhyNot.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <vector>

namespace backup {

namespace {

constexpr int formLetters = 66;

/// What is said of what has been typed, and whether it can be taken.
struct Verdict {
    bool isTaken = false;
    QString words;
};
using Judge = std::function<Verdict(const QStringList& typed)>;

/// Fields for a password, one or two that have to agree.
class PasswordForm : public QDialog {
  public:
    PasswordForm(const QString& words, const QStringList& captions, Judge judge, QWidget* parent)
        : QDialog(parent), judge_(std::move(judge)) {
        setObjectName(QStringLiteral("frmHeslo"));
        setWindowTitle(QStringLiteral("Heslo zálohy"));
        lblStav_->setObjectName(QStringLiteral("lblStav"));
        lblStav_->setWordWrap(true);
        connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* label = new QLabel(words);
        label->setWordWrap(true);
        auto* lines = new QVBoxLayout(this);
        lines->addWidget(label);
        lines->addLayout(fieldsOf(captions));
        lines->addWidget(lblStav_);
        lines->addWidget(buttons_);
        forms::fitToFont(*this, [this] { setFixedWidth(forms::lettersWide(*this, formLetters)); });
        judgeTyped();
    }

    std::optional<QByteArray> ask() {
        if (exec() != Accepted)
            return std::nullopt;
        // A letter with an accent can be typed in two ways that look the same.
        return typed().constFirst().normalized(QString::NormalizationForm_C).toUtf8();
    }

  private:
    QFormLayout* fieldsOf(const QStringList& captions) {
        auto* layout = new QFormLayout;
        for (const QString& caption : captions) {
            auto* field = new QLineEdit;
            field->setObjectName(QStringLiteral("txtHeslo(%1)").arg(fields_.size()));
            field->setAccessibleName(caption);
            field->setEchoMode(QLineEdit::Password);
            connect(field, &QLineEdit::textChanged, this, &PasswordForm::judgeTyped);
            layout->addRow(caption, field);
            fields_.push_back(field);
        }
        return layout;
    }
    QStringList typed() const {
        QStringList texts;
        for (const QLineEdit* field : fields_)
            texts << field->text();
        return texts;
    }
    void judgeTyped() {
        const Verdict verdict = judge_(typed());
        lblStav_->setText(verdict.words);
        forms::setUsable(*buttons_->button(QDialogButtonBox::Ok), verdict.isTaken,
                         verdict.words.isEmpty() ? QStringLiteral("Najprv napíšte heslo.")
                                                 : verdict.words);
    }

    Judge judge_;
    std::vector<QLineEdit*> fields_;
    QLabel* lblStav_ = new QLabel;
    QDialogButtonBox* buttons_ =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
};

Verdict judgeNew(const QStringList& typed) {
    if (typed.constFirst() != typed.constLast())
        return {false, QStringLiteral("Heslá sa zatiaľ líšia.")};
    if (typed.constFirst().isEmpty())
        return {true, QStringLiteral("Bez hesla si zálohu prečíta každý, kto sa k nej dostane.")};
    return {true, QStringLiteral("Heslo si zapíšte: nikde sa neukladá a bez neho sa záloha nedá "
                                 "obnoviť.")};
}

} // namespace

std::optional<QByteArray> askPassword(QWidget* parent, bool wasWrong) {
    const QString words = wasWrong ? QStringLiteral("Heslo nie je správne, skúste to znova.")
                                   : QStringLiteral("Archív je chránený heslom.");
    const auto judge = [](const QStringList& typed) {
        return Verdict{!typed.constFirst().isEmpty(), {}};
    };
    return PasswordForm(words, {QStringLiteral("Heslo")}, judge, parent).ask();
}

std::optional<QByteArray> askNewPassword(QWidget* parent) {
    return PasswordForm(QStringLiteral("Uložená záloha môže byť zašifrovaná (AES-256). Ak nemá "
                                       "byť, nechajte obe polia prázdne."),
                        {QStringLiteral("Heslo"), QStringLiteral("Heslo znova")}, judgeNew, parent)
        .ask();
}

} // namespace backup
