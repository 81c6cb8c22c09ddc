#pragma once
#include <QDialog>
namespace korvanel {
enum class MachineInfo { MachineI = 10 };
class FormH8 : public QDialog
{
public:
    FormH8(QWidget* parent, MachineInfo code) : QDialog(parent) { setObjectName(QStringLiteral("FormH8")); setProperty("code", static_cast<int>(code)); }
};
} // namespace korvanel
