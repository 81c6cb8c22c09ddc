// Texts as a strange language file brings them: none at all, or markup. Every page and dialog shows them as they stand.
#include "core/Texts.h"
#include "core/window/DialogTable.h"
#include "core/window/PlainLabel.h"
#include "support/Dialogs.h"
#include "support/WindowFixture.h"

#include <QLabel>

namespace korvanel::test {
namespace {

class StrangeTexts : public WindowTest
{
protected:
    ~StrangeTexts() override { SetBuiltInTexts(); }

    static void SetAll(const QString& text)
    {
        for (const TextSection& section : TextSections())
            for (const TextLine& line : section.lines)
                *line.variable = text;
    }
    /// Shows each page in each net configuration.
    void ShowEveryPage(const std::function<void()>& look)
    {
        for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
            OpenInWindow(netConf);
            App().bModelValid = true;
            for (const PageEntry& page : Pages()) {
                window.UnloadAndOpen(page.number);
                look();
            }
            window.UnloadPage();
            App().bProjectOpen = App().bProjectDirty = false;
            QFile::remove(App().sProjectPath);
        }
    }
    /// No label takes its text for anything but a text, and no tool tip is markup that isn't escaped.
    void ExpectPlain(const QWidget& around)
    {
        for (const QLabel* label : around.findChildren<QLabel*>())
            EXPECT_TRUE(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()))
                << label->objectName().toStdString() << ": " << label->text().toStdString();
        for (const QWidget* widget : around.findChildren<QWidget*>())
            EXPECT_FALSE(widget->toolTip().contains("<img")) << widget->objectName().toStdString();
    }
};

TEST_F(StrangeTexts, EmptyOnesShowEveryPage)
{
    SetAll({});
    int pages = 0;
    ShowEveryPage([&] { pages += window.PageOnShow() ? 1 : 0; });
    EXPECT_GT(pages, 30);
}

TEST_F(StrangeTexts, MarkupIsShownAsItStandsOnEveryPage)
{
    const QString markup = QStringLiteral("<img src=\"file:///dev/zero\"><b>x</b>");
    SetAll(markup);
    App().sProjectName = App().sDeviceId = markup;
    int pages = 0;
    ShowEveryPage([&] {
        ++pages;
        ExpectPlain(window);
    });
    EXPECT_GT(pages, 30);
}

TEST_F(StrangeTexts, DialogsOfBothKindsAreShown)
{
    for (const QString& text : {QString(), QStringLiteral("<img src=\"file:///dev/zero\">")}) {
        SetAll(text);
        OpenInWindow(2);
        for (const int dialog : {kDialogAbout, kDialogAddressSearch, kDialogWiring}) {
            bool isShown = false;
            WithNextDialog<QDialog>([&](QDialog& shown) {
                isShown = true;
                ExpectPlain(shown);
                shown.reject();
            });
            window.MainWindow::ShowDialog(dialog);
            EXPECT_TRUE(isShown) << dialog;
        }
        window.UnloadPage();
        App().bProjectOpen = App().bProjectDirty = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST(PlainLabelTest, TextOfEveryKindStaysAText)
{
    PlainLabel label(QStringLiteral("<b>x</b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.text(), "<b>x</b>");
    const int height = label.sizeHint().height();
    label.setText(QStringLiteral("<h1>x</h1>"));
    EXPECT_EQ(label.sizeHint().height(), height) << "no heading";
}

} // namespace
} // namespace korvanel::test
