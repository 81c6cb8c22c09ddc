#include "motors/FormH6.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/FormH6Texts.h"
#include "core/window/DialogButtons.h"
#include "core/window/PlainLabel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace korvanel {

namespace {

enum FieldIndex
{
    kPolePairs = 0,
    kPower = 1,
    kVoltage = 2
};

struct FieldWords
{
    TextRef caption;
    TextRef request; ///< shown while the field is empty
};

constexpr std::array<FieldWords, 3> kFields{{
    {&texts::searchPolePairs, &texts::searchEnterPolePairs},
    {&texts::searchPower, &texts::searchEnterPower},
    {&texts::searchVoltage, &texts::searchEnterVoltage},
}};

bool IsWholeNumber(double number)
{
    return std::floor(number) == number && std::abs(number) <= std::numeric_limits<int>::max();
}

} // namespace

FormH6::FormH6(QWidget* parent, bool isGenerator) : QDialog(parent), isForGenerator(isGenerator)
{
    setObjectName(QStringLiteral("FormH6"));
    setWindowTitle(texts::searchTitle);
    auto* grid = new QGridLayout;
    AddField(*grid, kPolePairs, texts::searchEqual);
    AddField(*grid, kPower, isGenerator ? texts::searchAtMost : texts::searchAtLeast);
    AddField(*grid, kVoltage, texts::searchEqual);

    const DialogButtons buttons =
        BuildDialogButtons(*this, "cmdSearch", texts::searchStart, "cmdCancel", [this] { Search(); });

    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    column->addStretch(1);
    column->addLayout(buttons.row);
}

std::optional<MachineFilter> FormH6::AskForFilter(QWidget* parent)
{
    FormH6 dialog(parent, App().MachineI.record.Pmech.value_or(0) < 0);
    dialog.exec();
    return dialog.Filter();
}

void FormH6::AddField(QGridLayout& grid, int index, const QString& relation)
{
    constexpr int kLongestText = 20;
    constexpr int kWidth = 120;
    auto* field = new QLineEdit;
    field->setObjectName(QStringLiteral("txtSearch_%1").arg(index));
    field->setMaxLength(kLongestText);
    field->setMinimumWidth(kWidth);
    auto* caption = new PlainLabel(TextOf(kFields.at(static_cast<std::size_t>(index)).caption));
    caption->setObjectName(QStringLiteral("lblSearch_%1").arg(index));
    caption->setBuddy(field);
    auto* sign = new PlainLabel(relation);
    sign->setObjectName(QStringLiteral("lblRelation_%1").arg(index));
    grid.addWidget(caption, index, 0);
    grid.addWidget(sign, index, 1);
    grid.addWidget(field, index, 2);
    fields.at(static_cast<std::size_t>(index)) = field;
}

std::optional<double> FormH6::NumberOf(int index)
{
    QLineEdit& field = *fields.at(static_cast<std::size_t>(index));
    std::optional<double> number = LocalNumber(ToLocalDecimal(field.text()));
    if (number && index == kPolePairs && !IsWholeNumber(*number))
        number.reset();
    if (!number) {
        ShowError(TextOf(kFields.at(static_cast<std::size_t>(index)).request));
        field.setFocus();
        field.selectAll();
    }
    return number;
}

void FormH6::Search()
{
    std::array<double, 3> numbers{};
    for (const int index : {kPolePairs, kPower, kVoltage}) {
        const std::optional<double> number = NumberOf(index);
        if (!number)
            return;
        numbers.at(static_cast<std::size_t>(index)) = *number;
    }
    filter = MachineFilter{.polePairs = static_cast<int>(numbers[kPolePairs]),
                           .Pmech = numbers[kPower],
                           .U = numbers[kVoltage],
                           .isGenerator = isForGenerator};
    accept();
}

} // namespace korvanel
