#include "output/FormH16.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH16Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "core/window/PendingInput.h"
#include "core/window/PlainToolTip.h"
#include "output/PrintRun.h"
#include "output/PrintedList.h"
#include "output/PrinterChoice.h"
#include "output/ReportContent.h"
#include "output/SetRangeBar.h"

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

namespace {

/// A box, and the section that it stands for.
struct SectionOfBoth
{
    TextRef title;
    ReportSection section;
};

/// In the order of their pages.
constexpr SectionOfBoth kSectionsOfBoth[] = {
    {&texts::printBothOverview, kReportBothOverview},
    {&texts::printBothEvaluation, kReportBothUtilisation},
    {&texts::printBothSetsI, kReportMachineSets},
    {&texts::printBothSetsII, kReportSecondMachineSets},
};
constexpr std::size_t kFirstOfSets = 2;

bool IsPrinted(ReportSection section)
{
    return App().PrintIt.at(section) > 0;
}

Report ReportOfBothMachines()
{
    Report report;
    for (const SectionOfBoth& line : kSectionsOfBoth)
        if (IsPrinted(line.section))
            PrintSection(report, line.section);
    return report;
}

} // namespace

FormH16::FormH16(QWidget* parent)
    : QDialog(parent), printers(new PrinterChoice("cmdPrinter", texts::printBothSetup)),
      range(new SetRangeBar(QStringLiteral("txtSatz")))
{
    constexpr QSize kSize(1080, 600);
    setObjectName(QStringLiteral("FormH16"));
    setWindowTitle(texts::printBothTitle);
    resize(kSize);
    auto* column = new QVBoxLayout(this);
    column->addWidget(printers);
    auto* results = new QHBoxLayout;
    for (std::size_t i = 0; i < kFirstOfSets; ++i)
        results->addWidget(BuildChoice(i));
    results->addStretch(1);
    column->addLayout(results);
    for (std::size_t i = 0; i < lists.size(); ++i) {
        column->addWidget(BuildChoice(kFirstOfSets + i));
        column->addWidget(BuildList(i), 1);
    }
    column->addWidget(BuildFoot());
    connect(range, &SetRangeBar::Changed, this, [this] { Guarded([this] { ShowSets(); }); });
    connect(&printers->SetupButton(), &QPushButton::clicked, this, [this] { Guarded([this] { printers->SetUp(); }); });
    ShowSets();
}

QWidget* FormH16::BuildChoice(std::size_t index)
{
    const SectionOfBoth& line = kSectionsOfBoth[index];
    auto* box = new QCheckBox(TextOf(line.title));
    box->setObjectName(QStringLiteral("chkMotor_%1").arg(index));
    box->setChecked(IsPrinted(line.section));
    connect(box, &QCheckBox::toggled, this,
            [this, index](bool isOn) { Guarded([this, index, isOn] { Switch(index, isOn); }); });
    return box;
}

QWidget* FormH16::BuildList(std::size_t index)
{
    auto* list = lists.at(index) = new PrintedList(static_cast<int>(index));
    connect(list, &PrintedList::HeadClicked, this,
            [this](int quantity) { Guarded([this, quantity] { SwitchColumn(quantity); }); });
    return list;
}

QWidget* FormH16::BuildFoot()
{
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(range, 1);
    printButton = new QPushButton(texts::printBothPrint);
    printButton->setObjectName(QStringLiteral("cmdPrint"));
    printButton->installEventFilter(this);
    connect(printButton, &QPushButton::clicked, this, [this] { Guarded([this] { Print(); }); });
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    row->addWidget(printButton);
    row->addWidget(ok);
    ok->setDefault(true); // once it is part of the dialog, which would choose another one else
    return foot;
}

void FormH16::Guarded(const std::function<void()>& routine)
{
    RunGuarded(windowTitle(), routine);
}

void FormH16::Switch(std::size_t index, bool isOn)
{
    const ReportSection section = kSectionsOfBoth[index].section;
    App().PrintIt.at(section) = isOn ? 1 : 0;
    if (section == kReportBothOverview) // it stands where that of the project would
        App().PrintIt.at(kReportOverview) = isOn ? 1 : 0;
    App().bProjectDirty = true;
}

void FormH16::SwitchColumn(int quantity)
{
    qint32& isOn = App().PrChecks.at(static_cast<std::size_t>(quantity));
    isOn = isOn > 0 ? 0 : 1;
    App().bProjectDirty = true;
    ShowSets();
}

void FormH16::ShowSets()
{
    for (PrintedList* list : lists)
        list->Rebuild();
}

/// The hint of the button tells where the report would go at this moment.
bool FormH16::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == printButton && event->type() == QEvent::ToolTip)
        printButton->setToolTip(PlainToolTip(printers->Target()));
    return QDialog::eventFilter(watched, event);
}

/// Enter in a box takes its number over, and the tables show what comes of it; it doesn't press a button besides.
void FormH16::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || !qobject_cast<QLineEdit*>(focusWidget()))
        QDialog::keyPressEvent(event);
}

/// All ways out end here. A number that can't be taken is told and may be put right, but keeps nobody who cancels.
void FormH16::done(int result)
{
    Guarded([this, result] {
        if (!range->Take() && result == Accepted)
            return;
        range->Refresh(); // or the box would tell it again when it loses the focus
        QDialog::done(result);
    });
}

/// That there is nothing to print is told before anybody is asked for a file.
void FormH16::Print()
{
    if (!range->Take())
        return;
    if (ReportOfBothMachines().PageCount() < 1) {
        ShowInformation(texts::reportNothing);
        return;
    }
    if (const std::unique_ptr<ReportOutput> output = printers->AskOutput()) {
        RunPrint(*this, *output, [](ReportOutput& target, const ReportWatch& watch) {
            return PutReport(ReportOfBothMachines(), target, watch);
        });
        DropPendingInput();
    }
}

} // namespace korvanel
