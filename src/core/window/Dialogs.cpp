#include "core/window/Dialogs.h"

#include "core/Paths.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/DialoguesTexts.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <array>

namespace korvanel {

namespace {

struct BoxButton
{
    Answer answer;
    QMessageBox::StandardButton button;
    TextRef text;
};

constexpr std::array<BoxButton, 4> kButtons{{
    {Answer::Ok, QMessageBox::Ok, &texts::buttonOk},
    {Answer::Yes, QMessageBox::Yes, &texts::buttonYes},
    {Answer::No, QMessageBox::No, &texts::buttonNo},
    {Answer::Cancel, QMessageBox::Cancel, &texts::buttonCancel},
}};

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::Ok:
        return QMessageBox::Ok;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::None:
        return QMessageBox::NoIcon;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

/// "Text (*.MDB)|*.MDB|" as the toolkit writes it: the pattern in brackets behind the text.
QStringList NameFilters(const QString& filter)
{
    const QStringList parts = filter.split(u'|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString text = parts[i];
        text.remove(u'(' + parts[i + 1] + u')');
        filters << text.trimmed() + QStringLiteral(" (") + parts[i + 1] + u')';
    }
    return filters;
}

void Prepare(QFileDialog& dialog, const FileQuestion& question, QFileDialog::AcceptMode mode)
{
    dialog.setObjectName(QStringLiteral("dlgFile"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setNameFilters(NameFilters(question.filter));
    const bool isSaving = mode == QFileDialog::AcceptSave;
    dialog.setAcceptMode(mode);
    dialog.setFileMode(isSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setLabelText(QFileDialog::Accept, isSaving ? texts::titleSave : question.title);
    dialog.setLabelText(QFileDialog::Reject, texts::buttonCancel);
}

/// Whoever chooses another type of file means its extension. The dialog changes that of a name which has one; a name
/// without any is to get it too.
void FollowFilter(QFileDialog& dialog)
{
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        static const QRegularExpression single(QStringLiteral("\\(\\*(\\.\\w+)\\)$"));
        if (const QRegularExpressionMatch match = single.match(filter); match.hasMatch())
            dialog.setDefaultSuffix(match.captured(1));
    });
}

QString Chosen(const QFileDialog& dialog)
{
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : QDir::toNativeSeparators(files.front());
}

/// The next dialog opens where the user has been last.
void RememberDirectory(const QString& path)
{
    QDir::setCurrent(QFileInfo(path).absolutePath());
}

} // namespace

Answer RunBox(QWidget* parent, const Box& box)
{
    QMessageBox dialog(IconOf(box.icon), box.title, {}, ButtonsOf(box.buttons), parent);
    dialog.setTextFormat(Qt::PlainText); // before the text, which is looked at when it is set
    dialog.setText(box.text);
    dialog.setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (const BoxButton& entry : kButtons) {
        QAbstractButton* button = dialog.button(entry.button);
        if (!button)
            continue;
        button->setText(TextOf(entry.text));
        if (entry.answer == box.preset)
            dialog.setDefaultButton(entry.button);
    }
    const int pressed = dialog.exec();
    for (const BoxButton& entry : kButtons)
        if (entry.button == pressed)
            return entry.answer;
    // Ended without an answer: what harms nobody.
    switch (box.buttons) {
    case BoxButtons::Ok:
        return Answer::Ok;
    case BoxButtons::YesNo:
        return Answer::No;
    case BoxButtons::YesNoCancel:
        break;
    }
    return Answer::Cancel;
}

QString RunOpenDialog(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent, question.title, question.suggestion);
    Prepare(dialog, question, QFileDialog::AcceptOpen);
    if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); name && !question.preset.isEmpty()) {
        name->setText(question.preset);
        name->selectAll(); // typing replaces it
    }
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QString path = Chosen(dialog);
    RememberDirectory(path);
    return path;
}

std::optional<QString> RunSaveDialog(QWidget* parent, const FileQuestion& question)
{
    QFileDialog dialog(parent, question.title, QFileInfo(question.suggestion).absolutePath());
    Prepare(dialog, question, QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(question.extension); // before the dialog asks whether to overwrite
    dialog.selectFile(FileNameOf(question.suggestion));
    if (!question.extension.isEmpty())
        FollowFilter(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    QString path = Chosen(dialog);
    if (path != question.suggestion)
        RememberDirectory(path);
    return path;
}

} // namespace korvanel
