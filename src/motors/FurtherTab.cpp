#include "motors/FurtherTab.h"

#include "core/Texts.h"
#include "core/texts/FormF10Texts.h"
#include "core/window/PlainLabel.h"
#include "motors/KnownGroup.h"
#include "motors/NumberBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace korvanel {

namespace {

QComboBox* NewList(const char* name, const QStringList& entries)
{
    auto* list = new QComboBox;
    list->setObjectName(QLatin1String(name));
    list->addItems(entries);
    list->setCurrentIndex(-1);
    return list;
}

QStringList PolePairs()
{
    QStringList texts;
    for (int pairs = 1; pairs <= kGreatestListedPolePairs; ++pairs)
        texts << QString::number(pairs);
    return texts;
}

QStringList ClassTexts()
{
    QStringList texts;
    for (const char* text : InsulationClasses())
        texts << QLatin1String(text);
    return texts;
}

} // namespace

FurtherTab::FurtherTab()
    : polePairsBox(NewList("cboPPZ", PolePairs())),
      connectionBox(NewList("cboSchaltung", {texts::machineConnectionStar, texts::machineConnectionDelta})),
      insulationBox(NewList("cboWaermKlasse", ClassTexts())), frictionBox(new QCheckBox(texts::machineFrictionZero))
{
    const std::vector<QWidget*> parts{
        AddGroup(kPolePairsKnown, texts::machineGroupPolePairs, {}, polePairsBox),
        AddNumber(kFieldTth, texts::machineGroupTth),
        AddGroup(kConnectionKnown, texts::machineGroupConnection, {}, connectionBox),
        AddGroup(kInsulationClassKnown, texts::machineGroupInsulation, {}, insulationBox),
        AddNumber(kFieldRs, texts::machineGroupRs),
        AddNumber(kFieldMass, texts::machineGroupMass),
        AddNumber(kFieldStallRatio, texts::machineGroupStallRatio),
        BuildFriction(),
    };
    constexpr int kColumns = 2;
    auto* grid = new QGridLayout(this);
    grid->setVerticalSpacing(4);
    for (int i = 0; i < static_cast<int>(parts.size()); ++i)
        grid->addWidget(parts[static_cast<std::size_t>(i)], i / kColumns, i % kColumns);
    grid->setRowStretch(static_cast<int>(parts.size()) / kColumns, 1);
}

KnownGroup* FurtherTab::AddGroup(MachineKnowledge group, const QString& title, const QString& caption, QWidget* control)
{
    auto* box = new KnownGroup(group, title);
    auto* row = new QHBoxLayout;
    if (!caption.isEmpty()) {
        auto* label = new PlainLabel(caption);
        label->setBuddy(control);
        row->addWidget(label);
    }
    control->setAccessibleName(title);
    row->addWidget(control);
    row->addStretch(1);
    row->addWidget(&box->KnownBox());
    box->Column().addLayout(row);
    box->Govern(control);
    groups.push_back(box);
    return box;
}

KnownGroup* FurtherTab::AddNumber(std::size_t field, const QString& title)
{
    auto* number = new NumberBox(field, [] { return false; });
    boxes.push_back(number);
    const MachineFieldEntry& told = MachineFieldOf(field);
    return AddGroup(told.group, title, TextOf(told.caption), number);
}

QGroupBox* FurtherTab::BuildFriction()
{
    auto* box = new QGroupBox(texts::machineGroupFriction);
    auto* column = new QVBoxLayout(box);
    frictionBox->setObjectName(QStringLiteral("chkReibM"));
    column->addWidget(frictionBox);
    return box;
}

void FurtherTab::Show(const MachineEntry& entry)
{
    for (NumberBox* box : boxes)
        box->ShowNumber(entry.numbers.at(box->Field()));
    polePairsBox->setCurrentIndex(entry.polePairs - 1);
    connectionBox->setCurrentIndex(entry.connection);
    insulationBox->setCurrentIndex(entry.insulationClass);
    frictionBox->setChecked(entry.isFrictionZero);
    for (KnownGroup* group : groups)
        group->SetKnown(entry.isKnown.at(group->Group()));
}

void FurtherTab::Collect(MachineEntry& entry) const
{
    for (const NumberBox* box : boxes)
        entry.numbers.at(box->Field()) = box->text();
    entry.polePairs = polePairsBox->currentIndex() + 1;
    entry.connection = connectionBox->currentIndex();
    entry.insulationClass = insulationBox->currentIndex();
    entry.isFrictionZero = frictionBox->isChecked();
    for (const KnownGroup* group : groups)
        entry.isKnown.at(group->Group()) = group->IsKnown();
}

void FurtherTab::SetEditing(bool isEditing)
{
    for (KnownGroup* group : groups)
        group->SetEditing(isEditing);
    frictionBox->setEnabled(isEditing);
    SetReadable(*frictionBox, !isEditing);
}

} // namespace korvanel
