#include "motors/RatingTab.h"

#include "core/Texts.h"
#include "core/texts/FormF10Texts.h"
#include "core/window/PlainLabel.h"
#include "motors/KnownGroup.h"
#include "motors/NoLoadPanel.h"
#include "motors/NumberBox.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace korvanel {

namespace {

constexpr int kMotor = 0;
constexpr int kGenerator = 1;

} // namespace

RatingTab::RatingTab() : options(new QButtonGroup(this))
{
    auto* row = new QHBoxLayout(this);
    row->addWidget(BuildRating(), 2);
    row->addWidget(BuildNoLoad(), 3);
    EnableMeasurement();
}

NumberBox* RatingTab::AddNumber(KnownGroup& group, QFormLayout& form, std::size_t field)
{
    auto* box = new NumberBox(field, [this] { return IsGenerator(); });
    group.Govern(box);
    AddRow(form, TextOf(MachineFieldOf(field).caption), box);
    boxes.push_back(box);
    return box;
}

QWidget* RatingTab::BuildRating()
{
    rating = new KnownGroup(kRatingKnown, texts::machineGroupRating);
    rating->Column().addWidget(&rating->KnownBox());
    auto* modes = new QHBoxLayout;
    int index = 0;
    for (const QString& caption : {texts::machineMotor, texts::machineGenerator}) {
        auto* option = new QRadioButton(caption);
        option->setObjectName(QStringLiteral("optGenerator_%1").arg(index));
        options->addButton(option, index++);
        rating->Govern(option);
        modes->addWidget(option);
    }
    modes->addStretch(1);
    options->button(kMotor)->setChecked(true);
    rating->Column().addLayout(modes);
    auto* form = new QFormLayout;
    for (std::size_t field = kFieldPmech; field <= kFieldCosphi; ++field)
        AddNumber(*rating, *form, field);
    rating->Column().addLayout(form);
    rating->Column().addStretch(1);
    connect(options, &QButtonGroup::idToggled, this, [this](int, bool isChecked) {
        if (!isChecked)
            return;
        for (const std::size_t field : {kFieldPmech, kFieldCosphi})
            boxes.at(field)->FollowMode();
    });
    return rating;
}

QWidget* RatingTab::BuildNoLoad()
{
    noLoad = new KnownGroup(kNoLoadKnown, texts::machineHeadNoLoad);
    noLoad->Column().addWidget(&noLoad->KnownBox());
    auto* form = new QFormLayout;
    for (std::size_t field = kFieldPo; field <= kFieldFo; ++field)
        AddNumber(*noLoad, *form, field);
    noLoad->Column().addLayout(form);
    onlineBox = new QCheckBox(texts::machineOnline);
    onlineBox->setObjectName(QStringLiteral("chkOnline"));
    noLoad->Column().addWidget(onlineBox);
    panel = new NoLoadPanel;
    panel->setVisible(false);
    connect(onlineBox, &QCheckBox::toggled, panel, &QWidget::setVisible);
    noLoad->Column().addWidget(panel);
    noLoad->Column().addStretch(1);
    connect(noLoad, &KnownGroup::KnownChanged, this, [this] { EnableMeasurement(); });
    return noLoad;
}

bool RatingTab::IsGenerator() const
{
    return options->checkedId() == kGenerator;
}

void RatingTab::Show(const MachineEntry& entry)
{
    {
        const QSignalBlocker quiet(options); // a machine is shown with the signs that it has
        options->button(entry.isGenerator ? kGenerator : kMotor)->setChecked(true);
    }
    for (NumberBox* box : boxes)
        box->ShowNumber(entry.numbers.at(box->Field()));
    rating->SetKnown(entry.isKnown[kRatingKnown]);
    noLoad->SetKnown(entry.isKnown[kNoLoadKnown]);
}

void RatingTab::Collect(MachineEntry& entry) const
{
    entry.isGenerator = IsGenerator();
    for (const NumberBox* box : boxes)
        entry.numbers.at(box->Field()) = box->text();
    entry.isKnown[kRatingKnown] = rating->IsKnown();
    entry.isKnown[kNoLoadKnown] = noLoad->IsKnown();
}

void RatingTab::SetEditing(bool isEditing)
{
    isEdited = isEditing;
    rating->SetEditing(isEditing);
    noLoad->SetEditing(isEditing);
    EnableMeasurement();
}

void RatingTab::EnableMeasurement()
{
    panel->EnableMeasurement(isEdited && noLoad->IsKnown());
}

NoLoadTexts RatingTab::NoLoad() const
{
    NoLoadTexts texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = boxes.at(kFieldPo + i)->text();
    return texts;
}

void RatingTab::ShowNoLoad(const NoLoadTexts& texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i)
        boxes.at(kFieldPo + i)->ShowNumber(texts[i]);
}

void RatingTab::SetMeasuring(bool isMeasuring)
{
    rating->setEnabled(!isMeasuring);
    onlineBox->setEnabled(!isMeasuring);
    noLoad->SetEditing(!isMeasuring && isEdited);
    for (std::size_t field = kFieldPo; isMeasuring && field <= kFieldFo; ++field)
        boxes.at(field)->setEnabled(false);
    panel->SetMeasuring(isMeasuring);
}

} // namespace korvanel
