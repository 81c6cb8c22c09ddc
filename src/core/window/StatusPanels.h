// The status bar: program and version, file of the project, on the machine page the motor database, and the share of a
// long operation with a progress bar over it.
#pragma once

#include <QStatusBar>

class QLabel;
class QProgressBar;

namespace korvanel {

class StatusPanels : public QStatusBar
{
    Q_OBJECT

public:
    StatusPanels();
    /// Title and version of the program.
    void ShowProgram();
    /// Name of the project's file.
    void ShowFile();
    /// Name of the motor database's file; empty where none matters.
    void ShowDatabase(const QString& name);

    void BeginProgress();
    /// Shows a share from 0 up to below 1; any other is ignored. True if the bar has moved.
    bool Advance(double share);
    void EndProgress();

private:
    QLabel* AddPanel(const char* name, int stretch);

    QLabel* programPanel;
    QLabel* filePanel;
    QLabel* databasePanel;
    QLabel* percentPanel;
    QProgressBar* progressBar = nullptr;
};

} // namespace korvanel
