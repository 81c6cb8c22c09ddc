// The page of the net configuration: what is measured and how, with the instruments that each way allows and the
// quantities that it yields.
#pragma once

#include "core/window/Page.h"
#include "instruments/Catalogue.h"

class QButtonGroup;
class QPlainTextEdit;
class QTabWidget;

namespace korvanel {

class FormF2 : public Page
{
    Q_OBJECT

public:
    FormF2(PageFrame& host, const PageEntry& entry);
    void Refresh() override;

private:
    QWidget* BuildTab(NetTab tab);
    QWidget* BuildOption(int netConf);
    QWidget* BuildList(int index, const char* captionName, const QString& caption);
    void Choose(int netConf);
    bool MayGoForward() override;
    /// The option of the tab in view: the one in force if it stands there, else its first that can be used.
    int NetConfInView() const;
    void ShowLists();

    QTabWidget* tabs;
    QButtonGroup* options;
    QPlainTextEdit* lists[2]{};
    bool isChoosing = false; ///< the click is one that the page itself has caused
};

} // namespace korvanel
