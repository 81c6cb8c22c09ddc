#include "motors/KnownGroup.h"

#include "core/texts/FormF10Texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QVBoxLayout>

namespace korvanel {

void SetReadOnly(QLineEdit& line, bool isReadOnly)
{
    line.setReadOnly(isReadOnly);
    QPalette palette;
    if (isReadOnly)
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    line.setPalette(palette);
}

void SetReadable(QWidget& control, bool isReadable)
{
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        if (isReadable)
            palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    control.setPalette(palette);
}

KnownGroup::KnownGroup(MachineKnowledge ofMachine, const QString& title)
    : QGroupBox(title), group(ofMachine), column(new QVBoxLayout(this)), knownBox(new QCheckBox(texts::machineKnown))
{
    constexpr int kMargin = 6;
    constexpr int kSpacing = 4;
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kSpacing);
    knownBox->setObjectName(QStringLiteral("chkstatus_%1").arg(static_cast<int>(group)));
    knownBox->setAccessibleName(title + QStringLiteral(": ") + texts::machineKnown);
    connect(knownBox, &QCheckBox::toggled, this, [this](bool isKnown) {
        EnableControls();
        emit KnownChanged(isKnown);
    });
    EnableControls();
}

void KnownGroup::Govern(QWidget* control)
{
    controls.push_back(control);
    EnableControls();
}

bool KnownGroup::IsKnown() const
{
    return knownBox->isChecked();
}

void KnownGroup::SetKnown(bool isKnown)
{
    knownBox->setChecked(isKnown);
}

void KnownGroup::SetEditing(bool isEditing)
{
    isEdited = isEditing;
    EnableControls();
}

void KnownGroup::EnableControls()
{
    knownBox->setEnabled(isEdited);
    for (QWidget* control : controls) {
        auto* line = qobject_cast<QLineEdit*>(control);
        if (line)
            SetReadOnly(*line, !isEdited); // can be read and copied all the same
        else
            SetReadable(*control, IsKnown() && !isEdited);
        control->setEnabled(IsKnown() && (isEdited || line));
        auto* list = qobject_cast<QComboBox*>(control);
        if (list && isEdited && IsKnown() && list->currentIndex() < 0)
            list->setCurrentIndex(0); // what is said to be known has a value
    }
}

} // namespace korvanel
