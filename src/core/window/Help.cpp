#include "core/window/Help.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/texts/MainTexts.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace korvanel {

namespace {

/// Programs that show a PDF file, tried in turn where the desktop has none assigned.
constexpr const char* kViewers[] = {"evince", "okular",  "atril",   "xreader", "mupdf",
                                    "xpdf",   "zathura", "firefox", "chromium"};

bool StartViewer(const QString& path)
{
    for (const char* viewer : kViewers) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(viewer));
        if (!program.isEmpty() && QProcess::startDetached(program, {path}))
            return true;
    }
    return false;
}

void TellNoViewer(const QString& path)
{
    ShowError(FillPlaceholders(texts::noManualViewer, {path}));
}

/// The desktop's opener tells only by its end whether it has found a program for the file.
bool StartOpener(const QString& path)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (program.isEmpty())
        return false;
    auto* opener = new QProcess(QCoreApplication::instance());
    QObject::connect(opener, &QProcess::finished, opener, [opener, path](int code, QProcess::ExitStatus status) {
        opener->deleteLater();
        if ((status != QProcess::NormalExit || code != 0) && !StartViewer(path))
            TellNoViewer(path);
    });
    opener->start(program, {path});
    return opener->waitForStarted();
}

bool OpenWithWhatIsThere(const QString& path)
{
#ifdef Q_OS_UNIX
    return StartOpener(path) || StartViewer(path);
#else
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
#endif
}

} // namespace

void OpenManual()
{
    const QString path = JoinPath(JoinPath(App().sProgramDir, QStringLiteral("LANGUAGES")), texts::manualFile);
    // The name comes from the language table; only a document of the folder itself is meant.
    const bool isDocument =
        texts::manualFile == FileNameOf(texts::manualFile) && HasExtension(texts::manualFile, QStringLiteral(".pdf"));
    if (!isDocument || !QFileInfo(path).isFile())
        ShowPathNotFound(path);
    else if (!OpenWithWhatIsThere(path))
        TellNoViewer(path);
}

void RunBrowser(const QString& url)
{
    if (!QDesktopServices::openUrl(QUrl(url)))
        ShowPathNotFound(url);
}

} // namespace korvanel
