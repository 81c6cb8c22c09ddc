#include "diagrams/PictureOutput.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Paths.h"
#include "core/Shell.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF8Texts.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>

namespace korvanel {

void SavePicture(SetValues& values, const DiagramSheet& sheet, QSize size)
{
    const QFileInfo project(App().sProjectPath);
    const std::optional<QString> path = App().TheShell->AskSavePath(
        {.title = texts::diagramSaveTitle,
         .suggestion = JoinPath(project.absolutePath(), project.completeBaseName() + QStringLiteral(".png")),
         .filter = texts::diagramFilter,
         .preset = {},
         .extension = QStringLiteral(".png")});
    if (!path)
        return;
    clsWaitCursor cursor;
    cursor.Show();
    const QByteArray bytes = FileOfSheet(values, sheet, size, u'.' + QFileInfo(*path).suffix().toLower());
    if (bytes.isEmpty()) {
        ShowError(texts::diagramUnknownEnding);
        return;
    }
    QSaveFile file(*path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        ShowError(texts::cannotWriteFile + u'\n' + *path + u'\n' + file.errorString());
}

void CopyPicture(SetValues& values, const DiagramSheet& sheet, QSize size)
{
    constexpr int kScale = 2;
    clsWaitCursor cursor;
    cursor.Show();
    QGuiApplication::clipboard()->setImage(ImageOfSheet(values, sheet, size, kScale));
}

} // namespace korvanel
