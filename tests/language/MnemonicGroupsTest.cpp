// Which texts are on show together: the menus as the window has them, and nothing left out.
#include "language/MnemonicGroups.h"

#include "support/WindowFixture.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <set>

namespace korvanel::test {

namespace {

class MnemonicGroupsTest : public WindowTest
{
protected:
    static QStringList CaptionsOf(const QWidget& menu)
    {
        QStringList captions;
        for (const QAction* entry : menu.actions())
            if (!entry->isSeparator() && !entry->text().isEmpty())
                captions << entry->text();
        return captions;
    }
    static QStringList TextsOf(const QString& group)
    {
        QStringList found;
        for (const MnemonicGroup& candidate : MnemonicGroups())
            if (candidate.name == group)
                for (const TextRef text : candidate.texts)
                    found << TextOf(text);
        return found;
    }
};

} // namespace

TEST_F(MnemonicGroupsTest, EntriesOfEachMenu_AreAGroup)
{
    EXPECT_EQ(TextsOf("menu bar"), CaptionsOf(*window.menuBar()));
    for (const QAction* top : window.menuBar()->actions())
        EXPECT_EQ(TextsOf("menu " + top->objectName()), CaptionsOf(*window.Menu().SubMenu(top->objectName())))
            << top->objectName().toStdString();
}

TEST_F(MnemonicGroupsTest, EveryTextWithAKey_IsInAGroup)
{
    std::set<TextRef> grouped;
    for (const MnemonicGroup& group : MnemonicGroups())
        grouped.insert(group.texts.begin(), group.texts.end());
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            if (!QKeySequence::mnemonic(*line.variable).isEmpty()) {
                EXPECT_TRUE(grouped.contains(line.variable)) << section.name << ' ' << line.number;
            }
}

TEST_F(MnemonicGroupsTest, EveryPageAndDialogWithASection_IsAGroup)
{
    for (const TextSection& section : TextSections()) {
        const QString name = section.name;
        const bool isForm = name.startsWith("FORM");
        EXPECT_EQ(TextsOf('[' + name + ']').isEmpty(), !isForm) << section.name;
    }
}

} // namespace korvanel::test
