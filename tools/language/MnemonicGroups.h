// Texts that are on show together, and so must not share a key. The entries of a menu are a group; so is what stands on
// a page with the menu bar and the buttons below it, and what stands in a dialog. The pages and dialogs follow from the
// sections; menus are listed here.
#pragma once

#include "core/Texts.h"

#include <QString>

#include <vector>

namespace korvanel {

struct MnemonicGroup
{
    QString name;
    std::vector<TextRef> texts;  ///< each differs from the others and from those around
    std::vector<TextRef> around; ///< belong to a group of their own
};

std::vector<MnemonicGroup> MnemonicGroups();

} // namespace korvanel
