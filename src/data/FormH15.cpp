#include "data/FormH15.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/texts/FormH15Texts.h"
#include "core/window/DialogButtons.h"
#include "core/window/PlainLabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace korvanel {

FormH15::FormH15(QWidget* parent) : QDialog(parent), box(new QLineEdit)
{
    constexpr int kLongestText = 20;
    constexpr int kWidth = 120;
    setObjectName(QStringLiteral("FormH15"));
    setWindowTitle(texts::findSetTitle);
    box->setObjectName(QStringLiteral("txtSet"));
    box->setMaxLength(kLongestText);
    box->setMinimumWidth(kWidth);
    box->setText(QString::number(std::min(App().iCurrentSet, App().iSetCount)));
    box->selectAll();
    auto* caption = new PlainLabel(FillPlaceholders(texts::findSetNumber, {QString::number(App().iSetCount)}));
    caption->setBuddy(box);
    auto* entry = new QHBoxLayout;
    entry->addWidget(caption);
    entry->addWidget(box, 1);

    const DialogButtons buttons =
        BuildDialogButtons(*this, "cmdOK", texts::findSetOk, "cmdCancel", [this] { TakeOver(); });

    auto* column = new QVBoxLayout(this);
    column->addLayout(entry);
    column->addStretch(1);
    column->addLayout(buttons.row);
}

bool FormH15::ChooseSet(QWidget* parent)
{
    return FormH15(parent).exec() == QDialog::Accepted;
}

void FormH15::TakeOver()
{
    const double typed = LocalNumber(ToLocalDecimal(box->text())).value_or(0);
    const bool isWhole = std::floor(typed) == typed;
    const double set = std::min(typed, static_cast<double>(App().iSetCount));
    if (isWhole && typed > set)
        box->setText(QString::number(App().iSetCount));
    if (!isWhole || set < 1) {
        box->setFocus();
        box->selectAll();
        return;
    }
    App().iCurrentSet = static_cast<qint32>(set);
    accept();
}

} // namespace korvanel
