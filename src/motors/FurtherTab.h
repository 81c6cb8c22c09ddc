// Tab of what else may be known of a machine: pole pairs, connection, stator resistance, stall ratio, thermal data,
// mass and friction.
#pragma once

#include "motors/MachineEntry.h"

#include <QWidget>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;

namespace korvanel {

class KnownGroup;
class NumberBox;

class FurtherTab : public QWidget
{
    Q_OBJECT

public:
    FurtherTab();
    void Show(const MachineEntry& entry);
    /// Puts what the tab holds into the entry.
    void Collect(MachineEntry& entry) const;
    void SetEditing(bool isEditing);
    /// The number boxes, in the order of the tab.
    const std::vector<NumberBox*>& Boxes() const { return boxes; }

private:
    KnownGroup* AddGroup(MachineKnowledge group, const QString& title, const QString& caption, QWidget* control);
    KnownGroup* AddNumber(std::size_t field, const QString& title);
    QGroupBox* BuildFriction();

    QComboBox* polePairsBox;
    QComboBox* connectionBox;
    QComboBox* insulationBox;
    QCheckBox* frictionBox;
    std::vector<KnownGroup*> groups;
    std::vector<NumberBox*> boxes;
};

} // namespace korvanel
