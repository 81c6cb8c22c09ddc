#include "output/SetRangeBar.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/texts/FormF9Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "output/ReportContent.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr int kChosenSets = 0; ///< of `PrintSetsOpt`
constexpr int kAllSets = 1;

} // namespace

SetRangeBar::SetRangeBar(const QString& boxName) : allButton(new QPushButton(texts::printAllSets))
{
    constexpr int kWidth = 66;
    constexpr int kLongest = 20;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    auto* caption = new PlainLabel(texts::printRange);
    row->addWidget(caption);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        auto* box = boxes.at(i) = new QLineEdit;
        box->setObjectName(boxName + u'_' + QString::number(i));
        box->setAlignment(Qt::AlignRight);
        box->setMaxLength(kLongest);
        box->setFixedWidth(kWidth);
        box->setAccessibleName(texts::printRange);
        connect(box, &QLineEdit::editingFinished, this, [this] { RunGuarded(texts::printRange, [this] { Take(); }); });
        if (i > 0)
            row->addWidget(new PlainLabel(texts::printTo));
        row->addWidget(box);
    }
    caption->setBuddy(boxes.front());
    allButton->setObjectName(QStringLiteral("cmdSelectAll"));
    connect(allButton, &QPushButton::clicked, this, [this] { TakeAll(); });
    row->addWidget(allButton);
    row->addStretch(1);
    Refresh();
}

void SetRangeBar::Refresh()
{
    const bool areAll = App().PrintSetsOpt == kAllSets;
    shown = {QString::number(areAll ? 1 : App().StartAtSet),
             QString::number(areAll ? App().iSetCount : App().StopAtSet)};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes.at(i)->setText(shown.at(i));
        boxes.at(i)->setToolTip(
            PlainToolTip(FillPlaceholders(texts::printSetRange, {QString::number(std::max(1, App().iSetCount))})));
    }
}

bool SetRangeBar::TakeBox(std::size_t index)
{
    QString text = boxes.at(index)->text();
    if (text == shown.at(index))
        return true;
    if (!CheckNumberRange(text, 1, std::max(1, App().iSetCount))) {
        boxes.at(index)->setFocus();
        boxes.at(index)->selectAll();
        return false;
    }
    if (App().PrintSetsOpt == kAllSets) { // the other end stays what is shown
        App().StartAtSet = 1;
        App().StopAtSet = App().iSetCount;
        App().PrintSetsOpt = kChosenSets;
    }
    (index == 0 ? App().StartAtSet : App().StopAtSet) = static_cast<qint32>(std::floor(LocalNumber(text).value_or(1)));
    App().bProjectDirty = true;
    Refresh();
    emit Changed();
    return true;
}

bool SetRangeBar::Take()
{
    return TakeBox(0) && TakeBox(1);
}

void SetRangeBar::TakeAll()
{
    App().PrintSetsOpt = kAllSets;
    App().bProjectDirty = true;
    Refresh();
    emit Changed();
}

} // namespace korvanel
