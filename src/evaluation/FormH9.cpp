#include "evaluation/FormH9.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/Texts.h"
#include "core/clsProgSettings.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormH9Texts.h"
#include "core/texts/ValueNamesTexts.h"
#include "core/window/DialogButtons.h"
#include "core/window/PlainLabel.h"
#include "data/FileManaging.h"
#include "evaluation/TimeWindow.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <cmath>

namespace korvanel {

namespace {

constexpr int kByHand = 0;
constexpr int kThermal = 1;
constexpr int kLongestEntry = 20;
constexpr int kRowSpacing = 6;

struct TimePart
{
    double limit;
    double seconds;
    TextRef unit;
};
constexpr std::array<TimePart, 3> kTimeParts{{
    {99, 3600, &texts::windowHours},
    {59, 60, &texts::windowMinutes},
    {59, 1, &texts::windowSeconds},
}};

std::optional<double> NumberIn(const QLineEdit& box)
{
    return LocalNumber(ToLocalDecimal(box.text()));
}

/// The whole part of what stands in a box of the time.
double WholeIn(const QLineEdit& box)
{
    return std::trunc(NumberIn(box).value_or(0));
}

QString TwoDigits(double number)
{
    return (QStringLiteral("00") + QString::number(number, 'f', 0)).right(2);
}

} // namespace

FormH9::FormH9(QWidget* parent) : QDialog(parent)
{
    ResolveTimeWindow();
    setObjectName(QStringLiteral("FormH9"));
    setWindowTitle(texts::windowTitle);
    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(10);
    grid->addWidget(AddOption(kByHand, texts::windowByHand), 0, 0);
    grid->addLayout(BuildTime(), 0, 1);
    wholeButton = new QPushButton(texts::windowWholeTerm);
    wholeButton->setObjectName(QStringLiteral("cmdGetAll"));
    wholeButton->setAutoDefault(false);
    connect(wholeButton, &QPushButton::clicked, this,
            [this] { RunGuarded(windowTitle(), [this] { TakeWholeTerm(); }); });
    grid->addWidget(wholeButton, 1, 1, Qt::AlignLeft);
    grid->addWidget(AddOption(kThermal, texts::windowThermal), 2, 0);
    grid->addLayout(BuildThermal(), 2, 1);
    grid->setRowStretch(3, 1);
    grid->addLayout(BuildButtons(), 4, 0, 1, 2);

    const clsProgSettings& settings = *App().ProgSettings;
    options.at(kThermal)->setEnabled(IsThermalWindowUsable());
    options.at(settings.TWindowSelection() == kThermal ? kThermal : kByHand)->setChecked(true);
    ShowTime(settings.TWindowSize(), true);
    factorBox->setText(NumberText(settings.TWindowFactor()));
    EnableChosen();
}

QRadioButton* FormH9::AddOption(int index, const QString& text)
{
    auto* option = new QRadioButton(text);
    option->setObjectName(QStringLiteral("optTWindow_%1").arg(index));
    connect(option, &QRadioButton::toggled, this, &FormH9::EnableChosen);
    return options.at(static_cast<std::size_t>(index)) = option;
}

QHBoxLayout* FormH9::BuildTime()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(kRowSpacing);
    for (std::size_t i = 0; i < kTimeParts.size(); ++i)
        AddTimeBox(*row, i, TextOf(kTimeParts.at(i).unit));
    row->addStretch(1);
    return row;
}

QLineEdit* FormH9::AddTimeBox(QHBoxLayout& row, std::size_t index, const QString& unit)
{
    constexpr int kWidth = 44;
    constexpr int kGap = 8;
    auto* box = new QLineEdit;
    box->setObjectName(QStringLiteral("txtTime_%1").arg(index));
    box->setMaxLength(kLongestEntry);
    box->setFixedWidth(kWidth);
    box->setAlignment(Qt::AlignRight);
    box->setAccessibleName(unit);
    connect(box, &QLineEdit::textChanged, this, [this, index] { LimitTime(index); });
    connect(box, &QLineEdit::editingFinished, this, [this, index] { PadTime(index); });
    auto* spacer = new PlainLabel(unit);
    spacer->setObjectName(QStringLiteral("lblSpacer_%1").arg(index));
    row.addWidget(box);
    row.addWidget(spacer);
    row.addSpacing(kGap);
    spacers.at(index) = spacer;
    return timeBoxes.at(index) = box;
}

QHBoxLayout* FormH9::BuildThermal()
{
    constexpr int kWidth = 80;
    auto* row = new QHBoxLayout;
    row->setSpacing(kRowSpacing);
    factorBox = new QLineEdit;
    factorBox->setObjectName(QStringLiteral("txtThermic"));
    factorBox->setMaxLength(kLongestEntry);
    factorBox->setFixedWidth(kWidth);
    factorBox->setAlignment(Qt::AlignRight);
    factorBox->setAccessibleName(texts::windowThermal);
    connect(factorBox, &QLineEdit::editingFinished, this, &FormH9::CheckFactor);
    factorUnit = new PlainLabel(texts::timesTimeConstant);
    factorUnit->setObjectName(QStringLiteral("lblWhat"));
    row->addWidget(factorBox);
    row->addWidget(factorUnit);
    row->addStretch(1);
    return row;
}

QHBoxLayout* FormH9::BuildButtons()
{
    return BuildDialogButtons(*this, "cmdOK", texts::buttonOk, "cmdAbort", [this] { Store(); }).row;
}

void FormH9::EnableChosen()
{
    const bool isThermal = options.at(kThermal)->isChecked();
    for (std::size_t i = 0; i < timeBoxes.size(); ++i) {
        timeBoxes.at(i)->setEnabled(!isThermal);
        spacers.at(i)->setEnabled(!isThermal);
    }
    wholeButton->setEnabled(!isThermal);
    factorBox->setEnabled(isThermal);
    factorUnit->setEnabled(isThermal);
}

void FormH9::ShowTime(double seconds, bool isCut)
{
    double rest = std::floor(std::max(0.0, seconds));
    for (std::size_t i = 0; i < kTimeParts.size(); ++i) {
        const double count = std::floor(rest / kTimeParts.at(i).seconds);
        rest -= count * kTimeParts.at(i).seconds;
        timeBoxes.at(i)->setText(TwoDigits(isCut ? count : std::min(count, kTimeParts.at(i).limit)));
    }
}

void FormH9::LimitTime(std::size_t index)
{
    QLineEdit& box = *timeBoxes.at(index);
    const double limit = kTimeParts.at(index).limit;
    const std::optional<double> number = NumberIn(box);
    const QSignalBlocker quiet(box);
    if (!number)
        box.clear();
    else if (*number < 0)
        box.setText(QStringLiteral("0"));
    else if (*number > limit)
        box.setText(NumberText(limit));
}

void FormH9::PadTime(std::size_t index)
{
    QLineEdit& box = *timeBoxes.at(index);
    const QSignalBlocker quiet(box);
    box.setText(TwoDigits(WholeIn(box)));
}

void FormH9::CheckFactor()
{
    if (NumberIn(*factorBox).value_or(0) <= 0)
        factorBox->setText(QStringLiteral("1"));
}

void FormH9::TakeWholeTerm()
{
    const qint32 last = App().iSetCount;
    if (last < 1)
        return;
    OpenDbGuarded();
    std::optional<double> end;
    VisitSets(last, last, [&end](const ShownSet& shown) {
        end = shown.row.dt;
        return true;
    });
    CloseDbGuarded();
    if (end)
        ShowTime(*end + App().dInterval, false);
}

void FormH9::Store()
{
    clsProgSettings& settings = *App().ProgSettings;
    if (options.at(kThermal)->isChecked()) {
        CheckFactor();
        settings.SetTWindowFactor(*NumberIn(*factorBox));
        settings.SetTWindowSelection(kThermal);
    } else {
        double seconds = 0;
        for (std::size_t i = 0; i < kTimeParts.size(); ++i)
            seconds += WholeIn(*timeBoxes.at(i)) * kTimeParts.at(i).seconds;
        settings.SetTWindowSize(seconds);
        settings.SetTWindowSelection(kByHand);
    }
    // Neither may be left without an extent, not even the one that is not in use.
    if (settings.TWindowSize() <= 0)
        settings.SetTWindowSize(1);
    if (settings.TWindowFactor() <= 0)
        settings.SetTWindowFactor(1);
    RecordingChanged();
    accept();
}

} // namespace korvanel
