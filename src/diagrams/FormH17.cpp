#include "diagrams/FormH17.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/clsGraphColours.h"
#include "core/clsSymbols.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH17Texts.h"
#include "core/window/PlainLabel.h"
#include "diagrams/PointValues.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace korvanel {

namespace {

constexpr qint32 kSetsAround = 5; // on each side of the point

enum Column
{
    kSetColumn,
    kTimeColumn,
    kValueColumn,
    kColumns
};

} // namespace

FormH17::FormH17(QWidget* parent)
    : QDialog(parent), symbolLabel(new PlainLabel), valueLabel(new PlainLabel), picColour(new QFrame),
      flxvalues(new QTableWidget(0, kColumns))
{
    constexpr QSize kColourSize(28, 16);
    constexpr QSize kTableSize(270, 250);
    setObjectName(QStringLiteral("FormH17"));
    setModal(false); // a click into the diagram shows another point
    symbolLabel->setObjectName(QStringLiteral("lblSymbol"));
    valueLabel->setObjectName(QStringLiteral("lblValue"));
    picColour->setObjectName(QStringLiteral("picColour"));
    picColour->setFixedSize(kColourSize);
    picColour->setFrameStyle(QFrame::Box | QFrame::Plain);
    picColour->setAutoFillBackground(true);
    auto* head = new QHBoxLayout;
    head->addWidget(picColour);
    head->addWidget(symbolLabel);
    head->addStretch(1);
    head->addWidget(valueLabel);

    flxvalues->setObjectName(QStringLiteral("flxvalues"));
    flxvalues->setEditTriggers(QAbstractItemView::NoEditTriggers);
    flxvalues->setSelectionBehavior(QAbstractItemView::SelectRows);
    flxvalues->verticalHeader()->hide();
    flxvalues->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    flxvalues->setMinimumSize(kTableSize);

    auto* table = new QPushButton(texts::pointTable);
    table->setObjectName(QStringLiteral("cmdShowTable"));
    table->setAutoDefault(false);
    connect(table, &QPushButton::clicked, this, [this] {
        flxvalues->setVisible(flxvalues->isHidden());
        adjustSize();
    });
    auto* ok = new QPushButton(texts::buttonOk);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(table);
    buttons->addStretch(1);
    buttons->addWidget(ok);

    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(head);
    column->addWidget(flxvalues);
    column->addLayout(buttons);
}

void FormH17::H17ShowForm(int quantity, qint32 set)
{
    H17ShowValue(quantity, set);
    show();
    raise();
    activateWindow();
}

void FormH17::H17ShowValue(int quantity, qint32 set)
{
    setWindowTitle(FillPlaceholders(texts::pointTitle, {App().Symbols->Symbol(quantity)}));
    symbolLabel->setText(App().Symbols->SymbolWithUnit(quantity));
    QPalette colours = picColour->palette();
    colours.setColor(QPalette::Window, ColourOf(App().GraphColours->colour(quantity)));
    picColour->setPalette(colours);
    flxvalues->setHorizontalHeaderLabels({texts::pointSet, texts::pointTime, App().Symbols->SymbolWithUnit(quantity)});
    flxvalues->setRowCount(0);
    valueLabel->clear();
    const qint32 first = std::max(1, set - kSetsAround);
    const qint32 last = std::min(App().iSetCount, set + kSetsAround);
    VisitPoints(first, last, [&](const ShownSet& shown) {
        const int row = flxvalues->rowCount();
        flxvalues->insertRow(row);
        const QStringList cells{QString::number(shown.set), SecondsToTime(shown.row.dt, false),
                                PointText(shown.row, quantity)};
        for (int column = 0; column < kColumns; ++column) {
            auto* cell = new QTableWidgetItem(cells[column]);
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            flxvalues->setItem(row, column, cell);
        }
        if (shown.set == set) {
            valueLabel->setText(PointText(shown.row, quantity));
            flxvalues->selectRow(row);
        }
    });
}

} // namespace korvanel
