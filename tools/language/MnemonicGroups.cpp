#include "language/MnemonicGroups.h"

#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF5Texts.h"
#include "core/texts/FormF8Texts.h"
#include "core/texts/MainTexts.h"

#include <algorithm>

namespace korvanel {

namespace {

/// The entries of a menu; those that are buttons of a page besides.
struct MenuTexts
{
    const char* name;
    std::vector<TextRef> texts;
    std::vector<TextRef> onPageToo;
};

const std::vector<TextRef>& MenuBar()
{
    static const std::vector<TextRef> bar{&texts::mnuFile,   &texts::mnuProjectData, &texts::mnuEngine,
                                          &texts::mnuDevice, &texts::mnuoptions,     &texts::mnuHelp};
    return bar;
}

const std::vector<MenuTexts>& Menus()
{
    static const std::vector<MenuTexts> menus{
        {"menu bar", MenuBar(), {}},
        {"menu mnuFile",
         {&texts::mnuNew, &texts::mnuOpen, &texts::mnuSave, &texts::mnuSaveAs, &texts::mnuClose, &texts::mnuPrint,
          &texts::mnuDelete, &texts::mnuEnd},
         {}},
        {"menu mnuProjectData", {&texts::mnuGeneralData, &texts::mnuConfiguration}, {}},
        {"menu mnuEngine", {&texts::mnuDatabase}, {}},
        {"menu mnuDevice",
         {&texts::mnuDeviceConf, &texts::mnuOnlineDevice, &texts::mnuOfflineDevice, &texts::mnuResTable,
          &texts::mnuResGraph, &texts::mnuResPrint},
         {}},
        {"menu mnuoptions", {&texts::mnuModbus, &texts::mnuDatabaseOpt, &texts::mnuConvert, &texts::mnuLang}, {}},
        {"menu mnuHelp", {&texts::mnuBook, &texts::mnuInternet, &texts::mnuInfo}, {}},
        {"menu of the editor",
         {&texts::editorEdit, &texts::editorCopy, &texts::editorPaste, &texts::editorPasteOver, &texts::editorMarkAll,
          &texts::editorUndo, &texts::editorRedo, &texts::editorEnergies},
         {&texts::editorDuplicate, &texts::editorDelete, &texts::editorInterpolate}},
        {"menu of the diagram", {&texts::diagramSave, &texts::diagramCopy, &texts::diagramWholeScreen}, {}},
    };
    return menus;
}

bool IsInMenuAlone(TextRef text)
{
    return std::any_of(Menus().begin(), Menus().end(), [text](const MenuTexts& menu) {
        return std::count(menu.texts.begin(), menu.texts.end(), text);
    });
}

/// A page or a dialog by its section; sections of messages and names are no group.
void AddGroupOf(const TextSection& section, std::vector<MnemonicGroup>& groups)
{
    const QString name = QLatin1String(section.name);
    const bool isPage = name.startsWith(QStringLiteral("FORMF"));
    if (!isPage && !name.startsWith(QStringLiteral("FORMH")))
        return;
    MnemonicGroup group{.name = QLatin1Char('[') + name + u']', .texts = {}, .around = {}};
    for (const TextLine& line : section.lines)
        if (!IsInMenuAlone(line.variable))
            group.texts.push_back(line.variable);
    group.around =
        isPage ? MenuBar()
               : std::vector<TextRef>{&texts::buttonOk, &texts::buttonCancel, &texts::buttonYes, &texts::buttonNo};
    if (isPage)
        group.around.insert(group.around.end(), {&texts::buttonBack, &texts::buttonForward});
    groups.push_back(std::move(group));
}

} // namespace

std::vector<MnemonicGroup> MnemonicGroups()
{
    std::vector<MnemonicGroup> groups;
    for (const MenuTexts& menu : Menus()) {
        MnemonicGroup group{.name = QLatin1String(menu.name), .texts = menu.texts, .around = {}};
        group.texts.insert(group.texts.end(), menu.onPageToo.begin(), menu.onPageToo.end());
        groups.push_back(std::move(group));
    }
    groups.push_back({.name = QStringLiteral("buttons of the pages"),
                      .texts = {&texts::buttonBack, &texts::buttonForward},
                      .around = MenuBar()});
    for (const TextSection& section : TextSections())
        AddGroupOf(section, groups);
    return groups;
}

} // namespace korvanel
