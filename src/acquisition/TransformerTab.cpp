#include "acquisition/TransformerTab.h"

#include "core/Common.h"
#include "core/Quantities.h"
#include "core/Texts.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF3Texts.h"
#include "core/window/EntryBox.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace korvanel {

namespace {

/// A quantity with the unit in which it is typed.
struct Typed
{
    Quantity quantity;
    TextRef unit;
    bool needsMachine = false;
};

/// In the order of the ends; voltage and current, the first two, have transformers and triggers too.
constexpr std::array<Typed, kScaleEnds> kTypedRows{{
    {kU, &texts::unitVolt},
    {kI, &texts::unitAmpere},
    {kP, &texts::unitKilowatt},
    {kF, &texts::unitHertz},
    {kM, &texts::unitNewtonMetre, true},
    {kN, &texts::unitRpm, true},
}};

QString Caption(const Typed& row)
{
    return App().Symbols->Symbol(row.quantity) + u':';
}

void SetSpacing(QGridLayout& grid)
{
    constexpr int kSpacing = 6;
    grid.setHorizontalSpacing(kSpacing);
    grid.setVerticalSpacing(kSpacing);
}

} // namespace

TransformerTab::TransformerTab()
{
    constexpr int kMargin = 5; // two groups side by side need the width of the page
    auto* upper = new QHBoxLayout;
    upper->addWidget(BuildProgramSide());
    upper->addWidget(BuildDeviceSide(), 1);
    auto* lower = new QHBoxLayout;
    lower->addWidget(BuildTriggers());
    lower->addWidget(BuildScaleEnds(), 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addLayout(upper);
    column->addLayout(lower);
    column->addStretch(1);
}

QWidget* TransformerTab::BuildTransformers(TransformerSide side)
{
    constexpr int kRatioColumn = 5;
    const QString ratioName =
        side == TransformerSide::Program ? QStringLiteral("lblTrans_%1") : QStringLiteral("lblDevTrans_%1");
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setContentsMargins(0, 0, 0, 0);
    SetSpacing(*grid);
    grid->addWidget(new PlainLabel(texts::headPrimary), 0, 1);
    grid->addWidget(new PlainLabel(texts::headSecondary), 0, 3);
    grid->addWidget(new PlainLabel(texts::headRatio), 0, kRatioColumn);
    grid->setColumnStretch(kRatioColumn, 1);
    for (int pair = 0; pair < 2; ++pair) {
        const int row = pair + 1;
        grid->addWidget(new PlainLabel(Caption(kTypedRows.at(static_cast<std::size_t>(pair)))), row, 0);
        AddTransformer(*grid, side, 2 * pair, row, 1);
        AddTransformer(*grid, side, 2 * pair + 1, row, 3);
        auto* ratio = new PlainLabel;
        ratio->setObjectName(ratioName.arg(pair));
        ratio->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // any number can be typed
        ratio->setMinimumWidth(ratio->fontMetrics().horizontalAdvance(QStringLiteral("60000 / 230")));
        Of(side).ratios.at(static_cast<std::size_t>(pair)) = ratio;
        grid->addWidget(ratio, row, kRatioColumn);
    }
    return content;
}

void TransformerTab::AddTransformer(QGridLayout& grid, TransformerSide side, int index, int row, int column)
{
    const QString name =
        side == TransformerSide::Program ? QStringLiteral("cboTrans_%1") : QStringLiteral("cboDevTrans_%1");
    const Typed& quantity = kTypedRows.at(static_cast<std::size_t>(index / 2));
    auto* box = new EntryBox(name.arg(index));
    box->setAccessibleName(Caption(quantity) + u' ' + (index % 2 == 0 ? texts::headPrimary : texts::headSecondary));
    box->SetChoices(TransformerChoices(index));
    connect(box, &EntryBox::Committed, this, [this, side, index](const QString& text) {
        EnterTransformer(side, index, text);
        ShowTransformer(side, index);
    });
    Of(side).boxes.at(static_cast<std::size_t>(index)) = box;
    grid.addWidget(box, row, column);
    grid.addWidget(new PlainLabel(TextOf(quantity.unit)), row, column + 1);
}

QWidget* TransformerTab::BuildProgramSide()
{
    auto* group = new QGroupBox(texts::groupProgramTransformers);
    auto* column = new QVBoxLayout(group);
    column->addWidget(BuildTransformers(TransformerSide::Program));
    column->addStretch(1);
    return group;
}

QWidget* TransformerTab::BuildDeviceSide()
{
    auto* group = new QGroupBox(texts::groupDeviceTransformers);
    auto* column = new QVBoxLayout(group);
    column->addWidget(BuildTransformers(TransformerSide::Instrument));
    auto* grid = new QGridLayout;
    column->addLayout(grid);
    const std::array captions{texts::buttonReadTransformers, texts::buttonWriteTransformers};
    constexpr std::array kDirections{TransferDirection::Read, TransferDirection::Write};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const QByteArray name = QByteArray("cmdDevTrans_") + QByteArray::number(static_cast<int>(i));
        transferButtons[i] = AddButton(*grid, 0, static_cast<int>(i), name.constData(), captions[i]);
        connect(transferButtons[i], &QPushButton::clicked, this,
                [this, direction = kDirections[i]] { emit TransferWanted(direction); });
    }
    resetButton = AddButton(*grid, 1, 0, "cmdReset", texts::buttonResetCounters);
    connect(resetButton, &QPushButton::clicked, this, &TransformerTab::ResetWanted);
    return group;
}

QPushButton* TransformerTab::AddButton(QGridLayout& grid, int row, int column, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    grid.addWidget(button, row, column);
    return button;
}

QWidget* TransformerTab::BuildTriggers()
{
    auto* group = new QGroupBox(texts::groupTrigger);
    auto* grid = new QGridLayout(group);
    SetSpacing(*grid);
    for (int i = 0; i < kTriggers; ++i) {
        const Typed& quantity = kTypedRows.at(static_cast<std::size_t>(i));
        auto* box = new EntryBox(QStringLiteral("cboTrigger_%1").arg(i));
        box->SetChoices(TriggerChoices());
        connect(box, &EntryBox::Committed, this,
                [box, i](const QString& text) { box->ShowText(EnterTrigger(i, text)); });
        box->setAccessibleName(Caption(quantity));
        triggers.at(static_cast<std::size_t>(i)) = box;
        grid->addWidget(new PlainLabel(Caption(quantity)), i, 0);
        grid->addWidget(box, i, 1);
        grid->addWidget(new PlainLabel(TextOf(quantity.unit)), i, 2);
    }
    grid->setRowStretch(kTriggers, 1);
    return group;
}

QWidget* TransformerTab::BuildScaleEnds()
{
    constexpr int kRows = 2;
    constexpr int kColumnsOfOne = 4; // caption, box, unit and a gap
    constexpr int kGapWidth = 14;
    auto* group = new QGroupBox(texts::groupScaleEnds);
    auto* grid = new QGridLayout(group);
    SetSpacing(*grid);
    for (int i = 0; i < kScaleEnds; ++i) {
        const Typed& quantity = kTypedRows.at(static_cast<std::size_t>(i));
        auto* box = new EntryBox(QStringLiteral("cboEnd_%1").arg(i));
        box->SetChoices(ScaleEndChoices(i));
        connect(box, &EntryBox::Committed, this,
                [box, i](const QString& text) { box->ShowText(EnterScaleEnd(i, text)); });
        box->setAccessibleName(Caption(quantity));
        scaleEnds.at(static_cast<std::size_t>(i)) = box;
        QWidget* const parts[] = {new PlainLabel(Caption(quantity)), box, new PlainLabel(TextOf(quantity.unit))};
        int column = i / kRows * kColumnsOfOne;
        grid->setColumnMinimumWidth(column + kColumnsOfOne - 1, kGapWidth);
        for (QWidget* part : parts) {
            grid->addWidget(part, i % kRows, column++);
            if (quantity.needsMachine)
                machineRows.push_back(part);
        }
    }
    grid->setColumnStretch(kScaleEnds / kRows * kColumnsOfOne, 1);
    grid->setRowStretch(kRows, 1);
    return group;
}

void TransformerTab::Refresh()
{
    for (const TransformerSide side : {TransformerSide::Program, TransformerSide::Instrument})
        for (int i = 0; i < kTransformerValues; ++i)
            ShowTransformer(side, i);
    for (int i = 0; i < kTriggers; ++i)
        triggers.at(static_cast<std::size_t>(i))->ShowText(TriggerText(i));
    for (int i = 0; i < kScaleEnds; ++i)
        scaleEnds.at(static_cast<std::size_t>(i))->ShowText(ScaleEndText(i));
    for (QWidget* part : machineRows)
        part->setVisible(HasMachine(App().iNetConfIndex));
    EnableDeviceSide();
}

void TransformerTab::ShowTransformer(TransformerSide side, int index)
{
    Of(side).boxes.at(static_cast<std::size_t>(index))->ShowText(TransformerText(side, index));
    QLabel& ratio = *Of(side).ratios.at(static_cast<std::size_t>(index / 2));
    ratio.setText(RatioText(side, index / 2));
    ratio.setToolTip(PlainToolTip(ratio.text()));
}

void TransformerTab::EnableDeviceSide()
{
    const bool hasTransformers = App().bDevConnected && App().bHasDevTrans;
    for (EntryBox* box : Of(TransformerSide::Instrument).boxes)
        box->setEnabled(hasTransformers);
    for (QLabel* ratio : Of(TransformerSide::Instrument).ratios)
        ratio->setEnabled(hasTransformers);
    for (QPushButton* button : transferButtons)
        button->setEnabled(hasTransformers);
    resetButton->setEnabled(App().bDevConnected && App().bHasCounterReset);
}

void TransformerTab::Commit()
{
    for (EntryBox* box : findChildren<EntryBox*>())
        box->Commit();
}

} // namespace korvanel
