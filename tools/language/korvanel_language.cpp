// korvanel_language: for translators of the program. Writes the language file that a translation begins with, and tells
// what is wrong with one. `korvanel_language --help` tells the rest.
#include "core/Texts.h"
#include "language/LanguageCheck.h"
#include "language/LanguageFile.h"
#include "language/LanguageTemplate.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

#include <cstdio>

using namespace korvanel;

namespace {

constexpr int kExitGood = 0;
constexpr int kExitFaulty = 1;
constexpr int kExitUsage = 2; ///< wrong arguments, or a file that can't be read or written

constexpr const char* kHelp =
    "usage: korvanel_language template [FILE]\n"
    "       korvanel_language check [--strict] FILE...\n"
    "\n"
    "template writes a language file with all texts of the program in German, to be translated; without FILE to the\n"
    "standard output. A FILE that is there already is left alone.\n"
    "check tells what is wrong with language files: \"file:line: error: ...\" for what the program would refuse or "
    "show\n"
    "wrongly, \"file:line: warning: ...\" for what is worth a look. With --strict it tells the texts that are German\n"
    "still.\n"
    "It ends with 0 if there is no error, with 1 if there is one, with 2 if it can't do its work.\n";

int FailUsage(const QString& reason)
{
    std::fprintf(stderr, "korvanel_language: %s\n", qUtf8Printable(reason));
    return kExitUsage;
}

int WriteTemplate(const QStringList& arguments)
{
    if (arguments.size() > 1)
        return FailUsage(QStringLiteral("template takes one file"));
    const QByteArray content = LanguageTemplate();
    QFile file;
    const bool isOpen = arguments.isEmpty()
                            ? file.open(stdout, QIODevice::WriteOnly)
                            : (file.setFileName(arguments[0]), file.open(QIODevice::WriteOnly | QIODevice::NewOnly));
    if (!isOpen || file.write(content) != content.size() || !file.flush())
        return FailUsage(QStringLiteral("%1: %2").arg(arguments.value(0), file.errorString()));
    return kExitGood;
}

/// A line of it may have a line break of the German text.
void PrintComplaint(const QString& path, Complaint complaint)
{
    std::printf("%s:%d: %s: %s\n", qUtf8Printable(path), complaint.line,
                complaint.severity == Severity::Error ? "error" : "warning",
                qUtf8Printable(complaint.text.replace(u'\n', QStringLiteral("~~"))));
}

int CheckFiles(QStringList arguments)
{
    const bool isStrict = arguments.removeAll(QStringLiteral("--strict")) > 0;
    if (arguments.isEmpty())
        return FailUsage(QStringLiteral("check needs a file"));
    int exitCode = kExitGood;
    for (const QString& path : std::as_const(arguments)) {
        const std::optional<QByteArray> content = ReadLanguageContent(path);
        if (!content)
            return FailUsage(
                QStringLiteral("%1: can't be read, or is larger than %2 bytes").arg(path).arg(kLargestLanguageFile));
        const Complaints complaints = CheckLanguage(*content, isStrict ? Strictness::Strict : Strictness::Usual);
        for (const Complaint& complaint : complaints)
            PrintComplaint(path, complaint);
        if (HasErrors(complaints))
            exitCode = kExitFaulty;
    }
    return exitCode;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().sliced(1);
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (command == QStringLiteral("--help")) {
        std::fputs(kHelp, stdout);
        return kExitGood;
    }
    if (command == QStringLiteral("template"))
        return WriteTemplate(arguments);
    if (command == QStringLiteral("check"))
        return CheckFiles(arguments);
    std::fputs(kHelp, stderr);
    return kExitUsage;
}
