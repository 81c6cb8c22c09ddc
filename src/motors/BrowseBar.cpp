#include "motors/BrowseBar.h"

#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/FormF10Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace korvanel {

namespace {

struct Way
{
    const char* sign;
    TextRef name;
    int (*target)(int row, int count);
};

constexpr std::array kWays{
    Way{"|<", &texts::machineFirst, [](int, int) { return 0; }},
    Way{"<", &texts::machinePrevious, [](int row, int count) { return (row < 0 ? count : row) - 1; }},
    Way{">", &texts::machineNext, [](int row, int) { return row + 1; }},
    Way{">|", &texts::machineLast, [](int, int count) { return count - 1; }},
};

} // namespace

BrowseBar::BrowseBar() : caption(new PlainLabel)
{
    constexpr int kSpacing = 2;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kSpacing);
    caption->setObjectName(QStringLiteral("BrowseBemess"));
    caption->setAlignment(Qt::AlignCenter);
    caption->setMinimumWidth(caption->fontMetrics().horizontalAdvance(QStringLiteral("8888/8888")));
    for (std::size_t i = 0; i < kWays.size(); ++i) {
        if (i == kWays.size() / 2)
            row->addWidget(caption);
        AddButton(i);
        row->addWidget(buttons.at(i));
    }
}

void BrowseBar::AddButton(std::size_t index)
{
    constexpr int kWidth = 32;
    const Way& way = kWays.at(index);
    auto* button = new QPushButton(QLatin1String(way.sign));
    button->setObjectName(QStringLiteral("cmdBrowse_%1").arg(index));
    button->setToolTip(PlainToolTip(TextOf(way.name)));
    button->setAccessibleName(TextOf(way.name));
    button->setFixedWidth(kWidth);
    connect(button, &QPushButton::clicked, this, [this, &way] { emit RowWanted(way.target(shownRow, rowCount)); });
    buttons.at(index) = button;
}

void BrowseBar::ShowPlace(int row, int count)
{
    shownRow = row;
    rowCount = count;
    caption->setText(FillPlaceholders(texts::machineRow, {QString::number(row + 1), QString::number(count)}));
}

void BrowseBar::EnableButtons(bool areEnabled)
{
    for (QPushButton* button : buttons)
        button->setEnabled(areEnabled);
}

} // namespace korvanel
