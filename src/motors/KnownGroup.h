// A group of values on the machine page that are known together or not at all, with the check box that says so.
#pragma once

#include "core/Machine.h"

#include <QGroupBox>

#include <vector>

class QCheckBox;
class QLineEdit;
class QVBoxLayout;

namespace korvanel {

/// A box that can be read but not typed in takes the colour of the window.
void SetReadOnly(QLineEdit& line, bool isReadOnly);

/// Lets a disabled control show what it holds as clearly as an enabled one.
void SetReadable(QWidget& control, bool isReadable);

class KnownGroup : public QGroupBox
{
    Q_OBJECT

public:
    KnownGroup(MachineKnowledge group, const QString& title);

    MachineKnowledge Group() const { return group; }
    QVBoxLayout& Column() { return *column; }
    QCheckBox& KnownBox() { return *knownBox; }
    /// A control that can be used while the group is known and edited.
    void Govern(QWidget* control);

    bool IsKnown() const;
    void SetKnown(bool isKnown);
    void SetEditing(bool isEditing);

signals:
    void KnownChanged(bool isKnown);

private:
    void EnableControls();

    MachineKnowledge group;
    QVBoxLayout* column;
    QCheckBox* knownBox;
    std::vector<QWidget*> controls;
    bool isEdited = false;
};

} // namespace korvanel
