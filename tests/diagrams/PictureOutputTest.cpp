// The page of the diagrams: pictures that are saved and copied, the diagram on the whole screen.
#include "diagrams/DiagramPageFixture.h"

#include <QClipboard>

namespace korvanel::test {
namespace {

using PictureOutputTest = DiagramPageTest;

TEST_F(PictureOutputTest, PictureIsSavedInEachFormat)
{
    EnterDiagrams();
    for (const QString ending : {"png", "svg", "pdf", "PNG"}) {
        const QString path = PathOf("bild." + ending);
        shell.savePaths = {path};
        Find<QAction>("mnuSavePicture").trigger();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << ending.toStdString();
        const QByteArray bytes = file.readAll();
        EXPECT_GT(bytes.size(), 3000) << ending.toStdString();
        EXPECT_EQ(bytes.contains("<svg"), ending == "svg");
        EXPECT_EQ(bytes.contains("Pmech"), ending == "svg");
        EXPECT_EQ(bytes.startsWith("%PDF"), ending == "pdf");
        EXPECT_EQ(QImage::fromData(bytes, "PNG").isNull(), ending.toLower() != "png");
    }
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(shell.saveQuestions[0].suggestion.endsWith("test.png"));
}

TEST_F(PictureOutputTest, PictureThatCanNotBeSavedIsTold)
{
    EnterDiagrams();
    shell.savePaths = {PathOf("bild.bmp"), PathOf("no such folder/bild.png")};
    Find<QAction>("mnuSavePicture").trigger();
    Find<QAction>("mnuSavePicture").trigger();
    Find<QAction>("mnuSavePicture").trigger(); // cancelled
    ASSERT_EQ(shell.boxes.size(), 2u);
    EXPECT_EQ(shell.boxes[0].text, "Ein Bild kann als .png, .svg oder .pdf gespeichert werden.");
    EXPECT_TRUE(shell.boxes[1].text.startsWith("Kann Datei nicht schreiben!"));
    EXPECT_FALSE(QFile::exists(PathOf("bild.bmp")));
}

TEST_F(PictureOutputTest, PictureIsCopied)
{
    EnterDiagrams();
    QApplication::clipboard()->clear();
    QTest::keyClick(&Box(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_GT(QApplication::clipboard()->image().width(), 800);
}

TEST_F(PictureOutputTest, F11ShowsTheDiagramOnTheWholeScreenAndBack)
{
    EnterDiagrams();
    const QSize size = Box().size();
    DiagramBox& box = Box();
    QTest::keyClick(&box, Qt::Key_F11);
    QTest::qWait(20);
    EXPECT_TRUE(box.window()->isFullScreen());
    EXPECT_GT(box.width(), size.width());
    QTest::mousePress(&box, Qt::LeftButton, {}, {60, 30});
    QTest::mouseRelease(&box, Qt::LeftButton, {}, {160, 130});
    QTRY_VERIFY(Find<QToolButton>("cmdRedraw").isEnabled()); // a key counts once it is drawn
    QTest::keyClick(&box, Qt::Key_Escape);
    QTRY_VERIFY(window.isAncestorOf(&box));
    EXPECT_EQ(&Box(), &box);
    EXPECT_EQ(box.size(), size);
    WaitForDrawing();
    EXPECT_TRUE(CanUndo()) << "the zoom on the whole screen counts";
    QTest::keyClick(&box, Qt::Key_F11);
    window.UnloadAndOpen(kPageGeneralData);
    QTest::qWait(20);
    EXPECT_EQ(PageName(), "FormF1");
}

} // namespace
} // namespace korvanel::test
