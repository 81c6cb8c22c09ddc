#include "core/Messages.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/DefaultTexts.h"

#include <QDir>
#include <QFile>

#include <exception>

namespace korvanel {

namespace {

Answer Ask(const QString& question, const QString& path)
{
    return App().TheShell->ShowBox(
        {texts::titleAttention, question + u'\n' + path, BoxIcon::Question, BoxButtons::YesNo, Answer::No});
}

} // namespace

void ShowError(const QString& text)
{
    App().TheShell->ShowBox({texts::titleError, text, BoxIcon::Exclamation, BoxButtons::Ok, Answer::Ok});
}

void ShowInformation(const QString& text)
{
    App().TheShell->ShowBox({texts::titleInformation, text, BoxIcon::None, BoxButtons::Ok, Answer::Ok});
}

void ShowBadFormat(const QString& path)
{
    ShowError(texts::badFormat + u'\n' + path);
}

void ShowPathNotFound(const QString& path)
{
    ShowError(texts::notFound + u'\n' + path);
}

void ShowFileInUse(const QString& path)
{
    ShowError(texts::fileInUse + QStringLiteral(":\n") + path);
}

void ShowNotFound(const QString& path)
{
    ShowPathNotFound(path);
    // The missing separator is wanted: the label is only shown, never opened.
    App().sProjectLabel = QDir::toNativeSeparators(QDir::currentPath()) + App().sDefaultProjectFile;
    App().TheShell->RefreshPage();
    App().TheShell->RefreshStatusBar();
    App().sDialogPreset = QStringLiteral("*.KVL");
    App().bFileError = false;
}

void ConfirmDelete(const QString& fileName)
{
    if (Ask(texts::reallyDelete, fileName) != Answer::Yes)
        App().bFileError = true;
}

void ConfirmOverwrite(const QString& path)
{
    App().bFileError = Ask(texts::reallyOverwrite, path) != Answer::Yes;
}

void DeleteFile(const QString& path)
{
    QFile::remove(path);
}

bool CheckNumberRange(QString& value, double minimum, double maximum)
{
    const RangeCheck check = TestNumberRange(value, minimum, maximum);
    value = check.text;
    if (!check.isAccepted)
        ShowError(FillPlaceholders(texts::numberRange, {NumberText(minimum), NumberText(maximum) + u' '}));
    return check.isAccepted;
}

void ReportFailure(const QString& operation, const QString& reason)
{
    ShowError(operation.isEmpty() ? reason : operation + u'\n' + reason);
}

void RunGuarded(const QString& operation, const std::function<void()>& routine)
{
    try {
        routine();
    } catch (const std::exception& error) {
        ReportFailure(operation, QString::fromUtf8(error.what()));
    }
}

} // namespace korvanel
