#include "core/window/Help.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Paths.h"
#include "core/texts/MainTexts.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace korvanel {

void OpenManual()
{
    const QString path = JoinPath(JoinPath(App().sProgramDir, QStringLiteral("LANGUAGES")), texts::manualFile);
    if (!QFileInfo(path).isFile() || !QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        ShowPathNotFound(path);
}

void RunBrowser(const QString& url)
{
    if (!QDesktopServices::openUrl(QUrl(url)))
        ShowPathNotFound(url);
}

} // namespace korvanel
