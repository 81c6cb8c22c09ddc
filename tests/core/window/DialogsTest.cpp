// The toolkit's own dialogs, really on show and answered by pressing their buttons.
#include "core/window/Dialogs.h"

#include "core/window/FormH2.h"
#include "core/window/FormH3.h"
#include "core/window/StartScreen.h"
#include "data/ValueTables.h"
#include "support/WindowFixture.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>

#include <functional>

namespace korvanel::test {
namespace {

class DialogsTest : public WindowTest
{
protected:
    /// Does something with the modal dialog as soon as one is on show.
    template <typename Dialog>
    static void WithNextDialog(const std::function<void(Dialog&)>& action)
    {
        QTimer::singleShot(0, [action] {
            if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget()))
                action(*dialog);
            else
                WithNextDialog<Dialog>(action);
        });
    }
};

TEST_F(DialogsTest, Box_HasTitleTextIconAndGermanButtons)
{
    struct Case
    {
        Box box;
        QMessageBox::Icon icon;
        QStringList buttons;
    };
    const Case cases[] = {
        {{"Fehlermeldung", "a < b & c\nzweite Zeile", BoxIcon::Exclamation, BoxButtons::Ok, Answer::Ok},
         QMessageBox::Warning,
         {"OK"}},
        {{"Achtung", "?", BoxIcon::Question, BoxButtons::YesNo, Answer::No}, QMessageBox::Question, {"Ja", "Nein"}},
        {{"Information", "i", BoxIcon::None, BoxButtons::YesNoCancel, Answer::Yes},
         QMessageBox::NoIcon,
         {"Abbrechen", "Ja", "Nein"}},
    };
    for (const Case& c : cases) {
        QStringList buttons;
        WithNextDialog<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), c.box.title);
            EXPECT_EQ(box.text(), c.box.text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), c.icon);
            EXPECT_TRUE(box.isModal());
            for (const QAbstractButton* button : box.buttons())
                buttons << button->text();
            buttons.sort(); // their order on show is the system's
            box.defaultButton()->click();
        });
        EXPECT_EQ(RunBox(&window, c.box), c.box.preset);
        EXPECT_EQ(buttons, c.buttons);
    }
}

TEST_F(DialogsTest, Box_EscapeCountsAsNoOrCancel)
{
    const auto escape = [](QMessageBox& box) { box.reject(); };
    WithNextDialog<QMessageBox>(escape);
    EXPECT_EQ(RunBox(&window, {"t", "q", BoxIcon::Question, BoxButtons::YesNoCancel, Answer::Yes}), Answer::Cancel);
    WithNextDialog<QMessageBox>(escape);
    EXPECT_EQ(RunBox(&window, {"t", "q", BoxIcon::None, BoxButtons::Ok, Answer::Ok}), Answer::Ok);
    WithNextDialog<QMessageBox>([](QMessageBox& box) { box.done(-1); }); // ended from outside
    EXPECT_EQ(RunBox(&window, {"t", "q", BoxIcon::Question, BoxButtons::YesNo, Answer::Yes}), Answer::No);
}

TEST_F(DialogsTest, OpenDialog_IsTheToolkitsOwnWithFilterAndPreset)
{
    WriteContent("da.MDB", "x");
    WithNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        EXPECT_EQ(dialog.windowTitle(), "Öffnen");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"KORVANEL Projekte (*.MDB)", "KVL Projekte (*.KVL)"}));
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        EXPECT_EQ(name->text(), "*.MDB");
        name->setText(PathOf("da.MDB"));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    const QString former = QDir::currentPath();
    EXPECT_EQ(RunOpenDialog(&window, {"Öffnen", folder.path(),
                                      "KORVANEL Projekte (*.MDB)|*.MDB|KVL Projekte (*.KVL)|*.KVL|", "*.MDB"}),
              PathOf("da.MDB"));
    EXPECT_EQ(QDir::currentPath(), folder.path()) << "the next dialog opens there";
    QDir::setCurrent(former);
    WithNextDialog<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(RunOpenDialog(&window, {"Öffnen", folder.path(), "KORVANEL Projekte (*.MDB)|*.MDB|", "*.MDB"}), "");
}

TEST_F(DialogsTest, SaveDialog_CancelIsNoAnswerAndTheSuggestionIsOne)
{
    const FileQuestion question{"Speichern unter", PathOf("PROJECT1.MDB"), "KORVANEL Projekte (*.MDB)|*.MDB|", {}};
    WithNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "PROJECT1.MDB");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), "Speichern");
        EXPECT_EQ(dialog.labelText(QFileDialog::Reject), "Abbrechen");
        dialog.reject();
    });
    EXPECT_EQ(RunSaveDialog(&window, question), std::nullopt);
    WithNextDialog<QFileDialog>([](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
    EXPECT_EQ(RunSaveDialog(&window, question), PathOf("PROJECT1.MDB"));
    const QString former = QDir::currentPath();
    WithNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("anders");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(RunSaveDialog(&window, question), PathOf("anders"));
    QDir::setCurrent(former);
}

TEST_F(DialogsTest, SaveDialog_AddsTheExtensionToANameWithoutOneBeforeItAsksWhetherToReplace)
{
    FileQuestion question{"Speichern unter", PathOf("PROJECT1.xls"), "Exceldatei (*.xls)|*.xls|", {}, ".xls"};
    const QString former = QDir::currentPath();
    const auto type = [this](const char* name) {
        WithNextDialog<QFileDialog>([path = PathOf(name)](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    };
    type("ohne");
    EXPECT_EQ(RunSaveDialog(&window, question), PathOf("ohne.xls"));
    type("mit.txt");
    EXPECT_EQ(RunSaveDialog(&window, question), PathOf("mit.txt"));
    WriteContent("da.xls", "x");
    bool isAsked = false;
    WithNextDialog<QFileDialog>([&](QFileDialog& dialog) {
        WithNextDialog<QMessageBox>([&](QMessageBox& box) {
            isAsked = true;
            box.button(QMessageBox::No)->click();
        });
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(PathOf("da"));
        QMetaObject::invokeMethod(&dialog, "accept");
        dialog.reject();
    });
    EXPECT_EQ(RunSaveDialog(&window, question), std::nullopt);
    EXPECT_TRUE(isAsked);
    QDir::setCurrent(former);
}

TEST_F(DialogsTest, SaveDialog_AnotherTypeOfFileBringsItsExtension)
{
    const FileQuestion question{
        "Speichern unter", PathOf("PROJECT1.xls"), "Exceldatei (*.xls)|*.xls|Textdokument (*.txt)|*.txt|", {}, ".xls"};
    const struct
    {
        const char* typed;
        const char* chosen;
    } cases[] = {{"PROJECT1.xls", "PROJECT1.txt"}, {"ohne", "ohne.txt"}};
    const QString former = QDir::currentPath();
    for (const auto& c : cases) {
        WithNextDialog<QFileDialog>([&](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QLatin1String(c.typed));
            auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
            types->setCurrentIndex(1);
            emit types->activated(1);
            emit types->textActivated(types->currentText());
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        EXPECT_EQ(RunSaveDialog(&window, question), PathOf(c.chosen));
    }
    QDir::setCurrent(former);
}

TEST_F(DialogsTest, AboutBox_ShowsNameAndVersion)
{
    FormH2 about(&window);
    QStringList texts;
    for (const QLabel* label : about.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains("KORVANEL"));
    EXPECT_TRUE(texts.contains("V1.2.3"));
}

TEST_F(DialogsTest, StartScreen_ShowsNameAndVersionAndGoesByAClickOrAKey)
{
    StartScreen screen{QPixmap()};
    screen.ShowInFront();
    EXPECT_EQ(screen.findChild<QLabel*>("lblStart_0")->text(), "KORVANEL");
    EXPECT_EQ(screen.findChild<QLabel*>("lblStart_1")->text(), "KORVANEL V1.2.3");
    EXPECT_EQ(screen.findChild<QLabel*>("imgLogo"), nullptr) << "no picture, no place for it";
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QApplication::sendEvent(&screen, &key);
    EXPECT_FALSE(screen.isVisible());
    screen.ShowInFront();
    QMouseEvent click(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&screen, &click);
    EXPECT_FALSE(screen.isVisible());
}

TEST_F(DialogsTest, WhileABoxIsOnShowNothingElseRuns)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    window.Menu().OnTriggered("mnuNew", [] { ADD_FAILURE() << "the menu ran behind the box"; });
    WithNextDialog<QMessageBox>([this](QMessageBox& box) {
        window.Menu().Entry("mnuNew")->trigger();
        Find<QPushButton>("cmdForw").click();
        EXPECT_FALSE(window.close());
        EXPECT_EQ(PageName(), "FormF1");
        box.reject();
    });
    RunBox(&window, {"t", "q", BoxIcon::None, BoxButtons::Ok, Answer::Ok});
    EXPECT_TRUE(window.isVisible());
}

class ColumnOrder : public DialogsTest
{
protected:
    ColumnOrder() { App().ColumnLayout = ColumnLayoutOf(6); }
    static QStringList Items(const FormH3& dialog)
    {
        QStringList items;
        const auto* list = dialog.findChild<QListWidget*>("lstOrder");
        for (int i = 0; i < list->count(); ++i)
            items << list->item(i)->text();
        return items;
    }
    static void Press(FormH3& dialog, const char* name)
    {
        dialog.findChild<QPushButton*>(QLatin1String(name))->click();
    }
};

TEST_F(ColumnOrder, ListsColumnsByTheirTexts)
{
    App().ColumnLayout = {3, -4, -3, -2, -1};
    EXPECT_EQ(Items(FormH3(&window)), (QStringList{"Pel", "Methode", "Modell", "Zeitstempel", "t Sample"}));
    EXPECT_EQ(FormH3(&window).windowTitle(), "Reihenfolge ändern");
}

TEST_F(ColumnOrder, ButtonsMoveTheMarkedRow)
{
    FormH3 dialog(&window);
    auto* list = dialog.findChild<QListWidget*>("lstOrder");
    list->setCurrentRow(2);
    Press(dialog, "cmdMove_1");
    EXPECT_EQ(Items(dialog), (QStringList{"U", "U 2", "U 1", "U 3", "f", "t Sample", "Zeitstempel"}));
    Press(dialog, "cmdMove_0");
    EXPECT_EQ(Items(dialog).first(), "U 2");
    Press(dialog, "cmdMove_0"); // already there
    Press(dialog, "cmdMove_1");
    EXPECT_EQ(Items(dialog).first(), "U 2");
    Press(dialog, "cmdMove_2");
    EXPECT_EQ(Items(dialog).mid(0, 2), (QStringList{"U", "U 2"}));
    Press(dialog, "cmdMove_3");
    EXPECT_EQ(Items(dialog).last(), "U 2");
    EXPECT_EQ(list->currentItem()->text(), "U 2") << "the row stays marked";
}

TEST_F(ColumnOrder, OkWritesTheOrderBack)
{
    WithNextDialog<FormH3>([](FormH3& dialog) {
        dialog.findChild<QListWidget*>("lstOrder")->setCurrentRow(0);
        Press(dialog, "cmdMove_3");
        Press(dialog, "cmdOK");
    });
    EXPECT_TRUE(FormH3::ChangeOrder(&window));
    EXPECT_EQ(App().ColumnLayout, (std::vector<qint16>{16, 17, 18, 2, -1, -2, 0}));
}

TEST_F(ColumnOrder, CancelChangesNothing)
{
    WithNextDialog<FormH3>([](FormH3& dialog) {
        Press(dialog, "cmdMove_3");
        Press(dialog, "cmdCancel");
    });
    EXPECT_FALSE(FormH3::ChangeOrder(&window));
    EXPECT_EQ(App().ColumnLayout, ColumnLayoutOf(6));
}

} // namespace
} // namespace korvanel::test
