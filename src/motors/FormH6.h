// "Datenbankeinträge suchen": the condition by which the machine page shortens its list.
#pragma once

#include "motors/MotorDatabase.h"

#include <QDialog>

#include <array>
#include <optional>

class QGridLayout;
class QLineEdit;

namespace korvanel {

class FormH6 : public QDialog
{
    Q_OBJECT

public:
    /// A generator has negative power, so that "at least" is "at most" there.
    FormH6(QWidget* parent, bool isGenerator);
    /// Asks the user; nothing if he cancels. The present machine of the project decides between motor and generator.
    static std::optional<MachineFilter> AskForFilter(QWidget* parent);

    const std::optional<MachineFilter>& Filter() const { return filter; }

private:
    void AddField(QGridLayout& grid, int index, const QString& relation);
    void Search();
    /// The number of a field; without one its message is shown and the field has the focus.
    std::optional<double> NumberOf(int index);

    bool isForGenerator;
    std::array<QLineEdit*, 3> fields{};
    std::optional<MachineFilter> filter;
};

} // namespace korvanel
