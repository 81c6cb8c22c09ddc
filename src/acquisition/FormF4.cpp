#include "acquisition/FormF4.h"

#include "acquisition/CurveList.h"
#include "acquisition/OnlineGraph.h"
#include "acquisition/ScheduleGrid.h"
#include "acquisition/clsTimeSchedule.h"
#include "core/Clock.h"
#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Shell.h"
#include "core/clsSymbols.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF4Texts.h"
#include "core/window/DialogTable.h"
#include "core/window/PageFrame.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "core/window/StatusLamp.h"
#include "data/RowQuantities.h"
#include "data/SampleGrid.h"
#include "data/ValueTables.h"
#include "instruments/Catalogue.h"
#include "machine/Algorithms_ASM_Start.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

constexpr int kShownSetsEntry = 0; ///< of the grid sizes in the block
constexpr int kSideWidth = 236;

enum Count
{
    kGraphCount,
    kBeginCount,
    kElapsedCount,
    kSampleCount
};

QString ZeroTime()
{
    return SecondsToTime(0, false);
}

/// The mask of the quantity's curve decides; what is not drawn depends on everything.
bool WasMeasuredWell(const std::vector<OnlineCurve>& curves, int quantity, const QString& mask)
{
    const auto curve =
        std::find_if(curves.begin(), curves.end(), [quantity](const OnlineCurve& c) { return c.quantity == quantity; });
    return MatchesMask(mask, curve == curves.end() ? "NNN?" : curve->pattern);
}

} // namespace

FormF4::FormF4(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), run(*App().TimeSchedule, *this), timer(new QTimer(this)),
      grid(new SampleGrid(App().iGridRows.at(kShownSetsEntry))), graph(new OnlineGraph), side(new QTabWidget),
      curveList(new CurveList), extraTable(new QTableWidget), scheduleGrid(new ScheduleGrid),
      lamp(new StatusLamp(QStringLiteral("shpLamp")))
{
    LookUpInstrument(App().sDevice);
    timer->setObjectName(QStringLiteral("Timer1"));
    timer->setInterval(kTickMilliseconds);
    timer->setTimerType(Qt::PreciseTimer);
    connect(timer, &QTimer::timeout, this, [this] { Tick(); });

    Body().setSpacing(5);
    Body().addLayout(BuildInstrumentRow());
    Body().addLayout(BuildCountRow());
    Body().addWidget(grid);
    Body().addLayout(BuildGraphRow(), 1);
    Body().addLayout(BuildButtonRow());
    ClearOnline();
}

QLabel* FormF4::AddValue(QBoxLayout& row, const char* name, const QString& caption)
{
    row.addWidget(new PlainLabel(caption));
    auto* value = new PlainLabel;
    value->setObjectName(QLatin1String(name));
    QFont font = value->font();
    font.setBold(true);
    value->setFont(font);
    row.addWidget(value);
    row.addSpacing(12);
    return value;
}

QBoxLayout* FormF4::BuildInstrumentRow()
{
    auto* row = new QHBoxLayout;
    row->addWidget(lamp);
    deviceLabel = AddValue(*row, "lblDevice", texts::deviceShown);
    ratioLabels[0] = AddValue(*row, "lblDevTrans_0", texts::voltageTransformer);
    ratioLabels[1] = AddValue(*row, "lblDevTrans_1", texts::currentTransformer);
    row->addStretch(1);
    timerPicture = new PlainLabel(QStringLiteral("\u23F0"));
    timerPicture->setObjectName(QStringLiteral("picTimer"));
    timerPicture->setToolTip(PlainToolTip(texts::timedSeries));
    timerPicture->setAccessibleName(texts::timedSeries);
    timerPicture->setVisible(false);
    row->addWidget(timerPicture);
    countdownLabel = new PlainLabel;
    countdownLabel->setObjectName(QStringLiteral("lblCountdown"));
    row->addWidget(countdownLabel);
    auto* info = new QPushButton(texts::showWiring);
    info->setObjectName(QStringLiteral("cmdInfo"));
    connect(info, &QPushButton::clicked, this, [this] { Guarded([] { App().TheShell->ShowDialog(kDialogWiring); }); });
    row->addWidget(info);
    return row;
}

QBoxLayout* FormF4::BuildCountRow()
{
    auto* row = new QHBoxLayout;
    counts[kBeginCount] = AddValue(*row, "lblCount_1", texts::measurementBegin);
    counts[kElapsedCount] = AddValue(*row, "lblCount_2", texts::measurementTerm);
    counts[kSampleCount] = AddValue(*row, "lblCount_3", texts::sampleNumber);
    // What changes every second keeps its place.
    counts[kBeginCount]->setMinimumWidth(fontMetrics().horizontalAdvance(DateTimeText(PresentMoment())) + 20);
    counts[kElapsedCount]->setMinimumWidth(fontMetrics().horizontalAdvance(SecondsToTime(888888, false)) + 10);
    rejectedLabel = AddValue(*row, "lblRejected", texts::rejectedSamples);
    row->addStretch(1);
    keptLabel = new PlainLabel;
    keptLabel->setObjectName(QStringLiteral("lblKept"));
    row->addWidget(keptLabel);
    return row;
}

QBoxLayout* FormF4::BuildGraphRow()
{
    auto* row = new QHBoxLayout;
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(graph, 1);
    counts[kGraphCount] = new PlainLabel;
    counts[kGraphCount]->setObjectName(QStringLiteral("lblCount_0"));
    counts[kGraphCount]->setAlignment(Qt::AlignRight);
    column->addWidget(counts[kGraphCount]);
    row->addLayout(column, 1);
    side->setObjectName(QStringLiteral("tabOnline"));
    side->setFixedWidth(kSideWidth);
    side->setDocumentMode(true);
    side->addTab(curveList, texts::curves);
    if (!ExtraQuantities(App().iNetConfIndex).empty()) {
        BuildExtraTable();
        side->addTab(extraTable, texts::moreValues);
    }
    side->addTab(scheduleGrid, texts::plannedRecordings);
    row->addWidget(side);
    return row;
}

void FormF4::BuildExtraTable()
{
    extraTable->setObjectName(QStringLiteral("flxExtraValues"));
    extraTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    extraTable->setColumnCount(1);
    extraTable->horizontalHeader()->hide();
    extraTable->horizontalHeader()->setStretchLastSection(true);
    const std::vector<int> quantities = ExtraQuantities(App().iNetConfIndex);
    extraTable->setRowCount(static_cast<int>(quantities.size()));
    QStringList names;
    for (int i = 0; i < extraTable->rowCount(); ++i) {
        names << App().Symbols->SymbolWithUnit(quantities[static_cast<std::size_t>(i)]);
        extraTable->setItem(i, 0, new QTableWidgetItem);
        extraTable->item(i, 0)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    extraTable->setVerticalHeaderLabels(names);
}

QBoxLayout* FormF4::BuildButtonRow()
{
    auto* row = new QHBoxLayout;
    startButton = new QPushButton;
    startButton->setObjectName(QStringLiteral("cmdSTART"));
    startButton->setMinimumWidth(150);
    connect(startButton, &QPushButton::clicked, this, [this] { Guarded([this] { PressStart(); }); });
    row->addWidget(startButton);
    dropButton = new QPushButton(texts::dropValues);
    dropButton->setObjectName(QStringLiteral("cmdDrop"));
    connect(dropButton, &QPushButton::clicked, this, [this] { Guarded([this] { run.Drop(); }); });
    row->addWidget(dropButton);
    row->addStretch(1);
    engineExtra = new PlainLabel(texts::calculationMethod);
    engineExtra->setObjectName(QStringLiteral("lblEngineExtra"));
    engineExtra->setVisible(false);
    row->addWidget(engineExtra);
    methodLabel = new PlainLabel;
    methodLabel->setObjectName(QStringLiteral("lblMethod"));
    row->addWidget(methodLabel);
    engineBox = new QComboBox;
    engineBox->setObjectName(QStringLiteral("cboEngine"));
    for (const int method : {0, 1})
        if (IsMethodUsable(method))
            engineBox->addItem(MethodName(method), method);
    engineBox->setCurrentIndex(std::max(0, engineBox->findData(App().iCalcMethod)));
    engineBox->setVisible(HasMachine(App().iNetConfIndex));
    row->addWidget(engineBox);
    return row;
}

void FormF4::PressStart()
{
    if (!run.IsTicking() && engineBox->count() > 0 && HasMachine(App().iNetConfIndex))
        App().iCalcMethod = static_cast<qint16>(engineBox->currentData().toInt());
    QPalette pressed = startButton->palette();
    pressed.setColor(QPalette::Button, palette().color(QPalette::Highlight));
    startButton->setPalette(pressed);
    isStartColoured = true;
    run.StartOrStop();
    if (!run.IsTicking())
        ResetStartColour();
}

void FormF4::Tick()
{
    RunGuarded(texts::measurementWord, [this] {
        try {
            run.Tick();
        } catch (...) {
            run.End(); // before anybody is told: the ticks go on while a box is on show
            throw;
        }
    });
}

void FormF4::Refresh()
{
    RefreshSetCount();
    ShowInstrument();
    ShowRunning(run.IsRunning());
    scheduleGrid->Fill();
    MarkEntry(App().TimeSchedule->CurrentSet());
    curveList->Fill(graph->Curves());
    grid->Rebuild();
    grid->ShowNewest();
    EnableDrop();
}

void FormF4::Leave()
{
    run.End();
}

/// The recording goes on while the question stands.
bool FormF4::MayClose()
{
    return !run.IsTicking() || App().TheShell->ShowBox({texts::titleAttention, texts::runUnderWay, BoxIcon::Question,
                                                        BoxButtons::YesNo, Answer::No}) == Answer::Yes;
}

void FormF4::FillExtraTable()
{
    const std::vector<int> quantities = ExtraQuantities(App().iNetConfIndex);
    for (int i = 0; i < extraTable->rowCount(); ++i)
        extraTable->item(i, 0)->setText(GridText(App().MeasuredRow, quantities[static_cast<std::size_t>(i)]));
}

void FormF4::EnableDrop()
{
    dropButton->setEnabled(!run.IsTicking() && App().iSetCount > 0);
}

// What the run shows.

void FormF4::MarkEntry(int index)
{
    scheduleGrid->MarkEntry(index);
}

void FormF4::ShowTimerPicture(bool isShown)
{
    if (timerPicture->isHidden() == isShown)
        timerPicture->setVisible(isShown);
}

void FormF4::ShowCountdown(const QString& text)
{
    if (countdownLabel->text() != text)
        countdownLabel->setText(text);
}

void FormF4::EnableTicks(bool areEnabled)
{
    if (areEnabled)
        timer->start();
    else
        timer->stop();
}

void FormF4::LockPage(bool isLocked)
{
    Frame().SetPageButtons(!isLocked);
    engineBox->setEnabled(!isLocked);
    scheduleGrid->setEnabled(!isLocked);
    if (isLocked && HasMachine(App().iNetConfIndex)) {
        methodLabel->setText(engineBox->currentText());
        engineExtra->setVisible(true);
    }
    dropButton->setEnabled(!isLocked && App().iSetCount > 0);
}

void FormF4::ShowRunning(bool isRunning)
{
    startButton->setText((isRunning ? texts::stopWord : texts::startWord) + u' ' + texts::measurementWord);
}

void FormF4::ResetStartColour()
{
    if (isStartColoured)
        startButton->setPalette({});
    isStartColoured = false;
}

void FormF4::ClearOnline()
{
    counts[kGraphCount]->setText(QStringLiteral("- "));
    counts[kElapsedCount]->setText(ZeroTime());
    counts[kSampleCount]->clear();
    rejectedLabel->setText(QString::number(0));
    grid->Rebuild();
    grid->ClearPresent();
    graph->Clear();
}

void FormF4::UpdateOnline(OnlineMode mode)
{
    if (mode == OnlineMode::Clear) {
        ClearOnline();
        return;
    }
    const tMeasuredRow& row = App().MeasuredRow;
    counts[kGraphCount]->setText(QString::number(row.lSet));
    counts[kSampleCount]->setText(QString::number(row.lSet));
    grid->ShowPresent(row, [](int) { return true; });
    grid->ShowNewest();
    graph->Plot(row.lSet, row, row.sValidMask);
    FillExtraTable();
}

void FormF4::ShowBadSample()
{
    const tMeasuredRow& row = App().MeasuredRow;
    grid->ShowPresent(row, [&](int quantity) { return WasMeasuredWell(graph->Curves(), quantity, row.sValidMask); });
}

void FormF4::ShowBegin(const QString& begin)
{
    counts[kBeginCount]->setText(begin);
    counts[kElapsedCount]->setText(ZeroTime());
    counts[kSampleCount]->setText(begin); // until the first sample has its number
}

void FormF4::ShowElapsed(const QString& elapsed)
{
    counts[kElapsedCount]->setText(elapsed);
}

void FormF4::ShowLamp(int colour)
{
    lamp->Show(colour, colour == kLampGood ? texts::sampleGood : texts::sampleBad);
}

void FormF4::ShowInstrument()
{
    const ApplicationBlock& app = App();
    deviceLabel->setText(app.sDeviceId.isEmpty() ? app.sDevice : app.sDeviceId);
    for (std::size_t i = 0; i < ratioLabels.size(); ++i)
        ratioLabels[i]->setText(app.bDevConnected && app.bHasDevTrans
                                    ? NumberText(app.dDevTransPrimary[i]) + QStringLiteral(" / ") +
                                          NumberText(app.dDevTransSecondary[i])
                                    : texts::noRatio);
}

void FormF4::ShowRejected(qint32 count)
{
    rejectedLabel->setText(QString::number(count));
}

void FormF4::ShowStored()
{
    grid->ShowNewest();
}

void FormF4::ShowKept(qint32 count)
{
    keptLabel->setText(count == 0 ? QString() : FillPlaceholders(texts::setsWaiting, {QString::number(count)}));
}

void FormF4::ShowDropped()
{
    ClearOnline();
    methodLabel->clear();
    engineExtra->setVisible(false);
    for (int i = 0; i < extraTable->rowCount(); ++i)
        extraTable->item(i, 0)->setText({});
    EnableDrop();
}

} // namespace korvanel
