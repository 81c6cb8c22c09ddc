#include "core/window/Help.h"

#include "support/WindowFixture.h"

#include <QDesktopServices>
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

TEST_F(Help, OpenManual_OpensTheFileInTheFolderOfLanguages)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("LANGUAGES"));
    WriteContent("LANGUAGES/Documentation_deu.pdf", "%PDF");
    OpenManual();
    EXPECT_EQ(opened.urls, QList<QUrl>{QUrl::fromLocalFile(PathOf("LANGUAGES/Documentation_deu.pdf"))});
    EXPECT_TRUE(shell.boxes.empty());
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

} // namespace
} // namespace korvanel::test

#include "HelpTest.moc"
