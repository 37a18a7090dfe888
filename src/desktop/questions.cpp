#include "desktop/questions.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace corvane {
namespace {

struct Translations {
    Q_DECLARE_TR_FUNCTIONS(corvane::Question)
};

} // namespace

QString EffectsOf(const QString& text) {
    if (text.contains("remove them?"))
        return Translations::tr("Yes removes the empty rows and saves. No saves with the empty rows.");
    if (text.contains("clear the dataset?"))
        return Translations::tr("Yes empties all cells and the notes. No keeps them.");
    if (text.contains("already exists"))
        return Translations::tr("Yes replaces what is in the file. No leaves the file as it is.");
    return {};
}

QMessageBox* Ask(QWidget* window, const Question& question, std::function<void(bool yes)> answered) {
    auto* sheet = new QMessageBox(QMessageBox::Question, question.title, question.text,
                                  QMessageBox::Yes | QMessageBox::No, window);
    sheet->setObjectName("question");
    sheet->setTextFormat(Qt::PlainText); // file names may look like mark-up
    sheet->setInformativeText(question.effects);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setDefaultButton(question.byDefault ? QMessageBox::Yes : QMessageBox::No);
    sheet->setEscapeButton(QMessageBox::No);
    QObject::connect(sheet, &QMessageBox::finished, sheet,
                     [answered = std::move(answered)](int button) { answered(button == QMessageBox::Yes); });
    sheet->open();
    return sheet;
}

} // namespace corvane
