#include "core/window/EntryBox.h"

#include "support/Fixture.h"
#include "support/Keys.h"

#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>

namespace korvanel::test {
namespace {

class EntryBoxTest : public BlockTest
{
protected:
    EntryBoxTest() : box(new EntryBox(QStringLiteral("cboValue"))), other(new QLineEdit)
    {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(box);
        column->addWidget(other);
        box->SetChoices({"1", "5", "10"});
        box->ShowText(QStringLiteral("5"));
        QObject::connect(box, &EntryBox::Committed, box, [this](const QString& text) {
            committed << text;
            if (!isRefusing)
                box->ShowText(text);
        });
        window.show();
        QApplication::setActiveWindow(&window);
        box->setFocus();
    }
    void Type(const char* text)
    {
        box->lineEdit()->selectAll();
        TypeKeys(*box->lineEdit(), QLatin1String(text));
    }

    QWidget window;
    EntryBox* box;
    QLineEdit* other;
    QStringList committed;
    bool isRefusing = false;
};

TEST_F(EntryBoxTest, TypingAloneHandsNothingOver)
{
    Type("7");
    EXPECT_TRUE(committed.isEmpty());
    EXPECT_TRUE(box->HasPendingText());
}

TEST_F(EntryBoxTest, EnterHandsOverOnce)
{
    Type("7");
    PressKey(*box->lineEdit(), Qt::Key_Return);
    other->setFocus();
    EXPECT_EQ(committed, QStringList{"7"});
    EXPECT_FALSE(box->HasPendingText());
}

TEST_F(EntryBoxTest, EnterOnAValueOfTheListHandsOverOnce)
{
    Type("10");
    PressKey(*box->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(committed, QStringList{"10"});
}

TEST_F(EntryBoxTest, LeavingHandsOver)
{
    Type("7");
    other->setFocus();
    EXPECT_EQ(committed, QStringList{"7"});
}

TEST_F(EntryBoxTest, LeavingForAMenuHandsOverToo)
{
    Type("7");
    QFocusEvent leave(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(box, &leave);
    EXPECT_EQ(committed, QStringList{"7"});
}

TEST_F(EntryBoxTest, ItsOwnListIsNoLeaving)
{
    Type("7");
    box->showPopup();
    EXPECT_TRUE(committed.isEmpty());
    box->hidePopup();
    other->setFocus();
    EXPECT_EQ(committed, QStringList{"7"});
}

TEST_F(EntryBoxTest, AnotherProgramInFrontIsNoLeaving)
{
    Type("7");
    QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(box, &leave);
    EXPECT_TRUE(committed.isEmpty());
}

TEST_F(EntryBoxTest, ChoosingHandsOverTheValueOfTheEntry)
{
    box->AddChoice(QStringLiteral("20   big"), QStringLiteral("20"));
    box->setCurrentIndex(3);
    emit box->activated(3);
    EXPECT_EQ(committed, QStringList{"20"});
    EXPECT_EQ(box->currentText(), "20");
}

TEST_F(EntryBoxTest, TheTextThatIsShownIsNoEntry)
{
    Type("5");
    PressKey(*box->lineEdit(), Qt::Key_Return);
    other->setFocus();
    EXPECT_TRUE(committed.isEmpty());
}

TEST_F(EntryBoxTest, ARefusedTextStaysPendingAndIsHandedOverAgain)
{
    isRefusing = true;
    Type("99");
    other->setFocus();
    EXPECT_TRUE(box->HasPendingText());
    box->setFocus();
    other->setFocus();
    EXPECT_EQ(committed, (QStringList{"99", "99"}));
}

TEST_F(EntryBoxTest, ATextThatBeginsLikeAnEntryIsLeftAsItIs)
{
    box->SetChoices({"100", "1000"});
    Type("1");
    EXPECT_EQ(box->currentText(), "1");
}

TEST_F(EntryBoxTest, NewChoicesKeepTheValue)
{
    box->SetChoices({"2", "3"});
    EXPECT_EQ(box->currentText(), "5");
    EXPECT_EQ(box->count(), 2);
    EXPECT_TRUE(committed.isEmpty());
}

TEST_F(EntryBoxTest, AFailureWhileHandingOverIsReported)
{
    QObject::connect(box, &EntryBox::Committed, box, [](const QString&) { throw std::runtime_error("broken"); });
    box->setAccessibleName("Intervall:");
    Type("7");
    box->Commit();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Intervall:\nbroken"});
}

} // namespace
} // namespace korvanel::test
