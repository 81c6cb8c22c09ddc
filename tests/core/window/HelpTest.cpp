#include "core/window/Help.h"

#include "core/texts/MainTexts.h"
#include "support/WindowFixture.h"

#include <QDesktopServices>
#include <QTest>
#include <QUrl>

namespace korvanel::test {
namespace {

/// Takes the place of the system's programs for files and addresses.
class OpenedUrls : public QObject
{
    Q_OBJECT

public:
    OpenedUrls()
    {
        for (const char* scheme : {"file", "https"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Take");
    }
    ~OpenedUrls() override
    {
        for (const char* scheme : {"file", "https"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    QList<QUrl> urls;

public slots:
    void Take(const QUrl& url) { urls << url; }
};

class Help : public WindowTest
{
protected:
    OpenedUrls opened;
};

/// A manual, and a folder of programs that is all the search for programs finds.
class ManualTest : public WindowTest
{
protected:
    ManualTest()
    {
        QDir(folder.path()).mkdir("LANGUAGES");
        QDir(folder.path()).mkdir("bin");
        WriteContent("LANGUAGES/Documentation_deu.pdf", "%PDF");
        qputenv("PATH", PathOf("bin").toLocal8Bit());
    }
    ~ManualTest() override { qputenv("PATH", formerPath); }

    /// A program that notes what it was given and ends with a code.
    void Install(const char* name, int code)
    {
        const QString file = QStringLiteral("bin/") + QLatin1String(name);
        WriteContent(file, QStringLiteral("#!/bin/sh\necho \"%1 $1\" >>'%2'\nexit %3\n")
                               .arg(QLatin1String(name), PathOf("opened"), QString::number(code))
                               .toUtf8());
        QFile::setPermissions(PathOf(file), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString Opened() const
    {
        QFile file(PathOf("opened"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    QString Manual() const { return PathOf("LANGUAGES/Documentation_deu.pdf"); }

    QByteArray formerPath = qgetenv("PATH");
};

TEST_F(ManualTest, OpensWithTheOpenerOfTheDesktop)
{
    Install("xdg-open", 0);
    Install("mupdf", 0);
    OpenManual();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Opened().isEmpty(); }));
    QTest::qWait(100);
    EXPECT_EQ(Opened(), "xdg-open " + Manual() + "\n");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ManualTest, OpensWithAViewerThatIsThereWhereTheDesktopKnowsNone)
{
    Install("xdg-open", 3);
    Install("mupdf", 0);
    OpenManual();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Opened().contains("mupdf"); }));
    EXPECT_EQ(Opened(), "xdg-open " + Manual() + "\nmupdf " + Manual() + "\n");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ManualTest, IsToldWhereNoProgramShowsIt)
{
    const QStringList told{"Es wurde kein Programm gefunden, das das Handbuch anzeigt (PDF):\n" + Manual()};
    OpenManual();
    EXPECT_EQ(shell.BoxTexts(), told);
    shell.boxes.clear();
    Install("xdg-open", 3);
    OpenManual();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !shell.boxes.empty(); }));
    EXPECT_EQ(shell.BoxTexts(), told);
}

TEST_F(Help, OpenManual_AMissingOneIsToldWithoutTouchingTheProject)
{
    App().sProjectLabel = QStringLiteral("Pumpe");
    OpenManual();
    EXPECT_TRUE(opened.urls.isEmpty());
    EXPECT_EQ(shell.BoxTexts(),
              QStringList{"Konnte Pfad/Datei nicht finden: \n" + PathOf("LANGUAGES/Documentation_deu.pdf")});
    EXPECT_EQ(App().sProjectLabel, "Pumpe");
}

TEST_F(Help, RunBrowser_HandsTheAddressOver)
{
    RunBrowser(QStringLiteral("https://localhost/x?a=b&c=d"));
    EXPECT_EQ(opened.urls, QList<QUrl>{QUrl("https://localhost/x?a=b&c=d")});
}

TEST_F(ManualTest, NameThatLeadsElsewhereIsNotOpened)
{
    Install("xdg-open", 0);
    WriteContent("x.desktop", "[Desktop Entry]");
    WriteContent("LANGUAGES/x.desktop", "[Desktop Entry]");
    const QString former = texts::manualFile;
    for (const char* name : {"../x.desktop", "x.desktop", "../LANGUAGES/Documentation_deu.pdf"}) {
        texts::manualFile = QLatin1String(name);
        OpenManual();
    }
    texts::manualFile = former;
    QTest::qWait(100);
    EXPECT_EQ(Opened(), "");
    EXPECT_EQ(shell.boxes.size(), 3U);
}

} // namespace
} // namespace korvanel::test

#include "HelpTest.moc"
