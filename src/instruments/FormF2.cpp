#include "instruments/FormF2.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/Shell.h"
#include "core/Texts.h"
#include "core/texts/FormF2Texts.h"
#include "core/window/PlainLabel.h"
#include "instruments/NetConfigurationChange.h"
#include "instruments/QuantityLists.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

struct TabEntry
{
    NetTab tab;
    const char* key;
    TextRef title;
};

/// In the order on the page.
constexpr std::array<TabEntry, 4> kTabs{{
    {NetTab::SinglePhase, "A", &texts::tabSinglePhase},
    {NetTab::ThreePhase, "B", &texts::tabThreePhase},
    {NetTab::Voltage, "D", &texts::tabVoltage},
    {NetTab::Machine, "C", &texts::tabMachine},
}};

} // namespace

FormF2::FormF2(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), tabs(new QTabWidget), options(new QButtonGroup(this))
{
    tabs->setObjectName(QStringLiteral("tabPage"));
    for (const TabEntry& tab : kTabs) {
        if (QWidget* content = BuildTab(tab.tab)) {
            content->setObjectName(QStringLiteral("tabPage_") + QLatin1String(tab.key));
            tabs->addTab(content, TextOf(tab.title));
        }
    }
    tabs->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    Body().addWidget(tabs);
    auto* note = new PlainLabel(texts::noteNotAllDevices);
    note->setObjectName(QStringLiteral("lblNote"));
    Body().addWidget(note);

    auto* row = new QHBoxLayout;
    row->addWidget(BuildList(0, "lblMeasured", texts::measuredQuantities));
    row->addWidget(BuildList(1, "lblCalculated", texts::calculatedQuantities));
    Body().addLayout(row, 1);
    connect(options, &QButtonGroup::idToggled, this, [this](int netConf, bool isChecked) {
        if (isChecked && !isChoosing)
            Guarded([this, netConf] { Choose(netConf); });
    });
    connect(tabs, &QTabWidget::currentChanged, this, [this] { ShowLists(); });
}

/// A tab without a usable option is left out.
QWidget* FormF2::BuildTab(NetTab tab)
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    bool isUsable = false;
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        const NetConfiguration& configuration = NetConfigurationOf(netConf);
        if (configuration.tab != tab)
            continue;
        column->addWidget(BuildOption(netConf));
        isUsable = isUsable || !configuration.entries.empty();
    }
    column->addStretch(1);
    if (isUsable)
        return content;
    delete content;
    return nullptr;
}

QWidget* FormF2::BuildOption(int netConf)
{
    constexpr int kIndent = 22;
    const NetConfiguration& configuration = NetConfigurationOf(netConf);
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraNetConf_%1").arg(netConf));
    frame->setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(0);
    auto* option = new QRadioButton(TextOf(configuration.heading));
    option->setObjectName(QStringLiteral("optNetConf_%1").arg(netConf));
    option->setEnabled(!configuration.entries.empty());
    options->addButton(option, netConf);
    column->addWidget(option);
    auto* devices = new PlainLabel(
        FillPlaceholders(texts::supportedDevices, {InstrumentEntries(netConf).join(QStringLiteral(", "))}));
    devices->setObjectName(QStringLiteral("lblDevices_%1").arg(netConf));
    devices->setWordWrap(true);
    devices->setIndent(kIndent);
    column->addWidget(devices);
    return frame;
}

QWidget* FormF2::BuildList(int index, const char* captionName, const QString& caption)
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    auto* label = new PlainLabel(caption);
    label->setObjectName(QLatin1String(captionName));
    column->addWidget(label);
    auto* box = new QPlainTextEdit;
    box->setObjectName(QStringLiteral("txtDescr_%1").arg(index));
    box->setReadOnly(true);
    box->setTabChangesFocus(true);
    column->addWidget(box, 1);
    lists[index] = box;
    return content;
}

void FormF2::Refresh()
{
    const QScopedValueRollback guard(isChoosing, true);
    QAbstractButton* option = options->button(App().iNetConfIndex);
    option->setChecked(true);
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->widget(i)->isAncestorOf(option))
            tabs->setCurrentIndex(i);
    ShowLists();
}

void FormF2::Choose(int netConf)
{
    ChangeNetConfiguration(netConf);
    // Checks the option that is in force now: the new one, or the former one after a refusal.
    Refresh();
}

bool FormF2::MayGoForward()
{
    if (NetConfInView() == App().iNetConfIndex)
        return true;
    const NetConfiguration& chosen = NetConfigurationOf(App().iNetConfIndex);
    const auto tab = std::find_if(kTabs.begin(), kTabs.end(), [&](const TabEntry& t) { return t.tab == chosen.tab; });
    const QString question = FillPlaceholders(texts::goOnWithOtherTab, {TextOf(tab->title), TextOf(chosen.heading)});
    return App().TheShell->ShowBox({App().sProgramTitle.trimmed(), question, BoxIcon::Question, BoxButtons::YesNo,
                                    Answer::No}) == Answer::Yes;
}

int FormF2::NetConfInView() const
{
    const QWidget* inView = tabs->currentWidget();
    if (inView->isAncestorOf(options->button(App().iNetConfIndex)))
        return App().iNetConfIndex;
    for (int netConf = 0; netConf < kNetConfCount; ++netConf)
        if (inView->isAncestorOf(options->button(netConf)) && options->button(netConf)->isEnabled())
            return netConf;
    return App().iNetConfIndex;
}

void FormF2::ShowLists()
{
    const int netConf = NetConfInView();
    lists[0]->setPlainText(MeasuredList(netConf));
    lists[1]->setPlainText(CalculatedList(netConf));
}

} // namespace korvanel
