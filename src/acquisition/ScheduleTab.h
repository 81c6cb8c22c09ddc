// The tab of the measuring configuration on which recordings are planned: the fields of one recording, how it repeats,
// and the grid of all that are planned. The schedule belongs to the program and not to the project, so nothing here
// marks the project as changed.
#pragma once

#include "acquisition/ScheduleEditing.h"

#include <QWidget>

#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QFrame;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTimeEdit;
class QVBoxLayout;

namespace korvanel {

class ScheduleGrid;

class ScheduleTab : public QWidget
{
    Q_OBJECT

public:
    /// The fields begin with their defaults, whatever the schedule holds; a tab is made anew for each time it is shown.
    explicit ScheduleTab(QWidget* parent = nullptr);
    /// Shows the schedule again. What the user has typed stays.
    void Refresh();
    /// Asks whether to save a planned recording that was typed and not saved; false if the user wants to stay, or if it
    /// can't be saved, which has been told.
    bool TakeInput();

private:
    /// A moment in two boxes.
    struct MomentBoxes
    {
        QDateEdit* date;
        QTimeEdit* time;
        QDateTime Moment() const;
        void Show(const QDateTime& moment) const;
        void SetEnabled(bool isEnabled) const;
    };

    QFrame* BuildEntry();
    QFrame* BuildCycles();
    QVBoxLayout* BuildButtons();
    QHBoxLayout* BuildMoment(int index, const QString& accessibleName);
    /// The three boxes of a duration with their units.
    QWidget* BuildPeriod(int first, const QString& accessibleName);
    QComboBox* BuildMode(int index, const QStringList& entries);
    void AddButton(QVBoxLayout& column, const char* name, const QString& text, void (ScheduleTab::*action)());
    PeriodText TypedPeriod(int first) const;
    void ShowPeriod(int first, qint32 seconds);

    ScheduleFields Fields() const;
    void ShowFields(const ScheduleFields& fields);
    void EnableFields(const ScheduleFields& fields);
    void TakeEdit(EditedField edited);
    void TidyPeriod(int index);

    void Save();
    void SaveAsNew();
    bool SaveEntries(std::optional<qint32> replaced);
    void DeleteCurrent();
    void Choose(int index);
    void ShowCurrent();
    void Guarded(const std::function<void()>& routine);

    std::array<QComboBox*, 2> modes{};
    std::array<MomentBoxes, 3> moments{};
    std::array<QLineEdit*, 6> periods{};
    std::array<QLabel*, 2> periodCaptions{}; ///< of the recording and of the cycle
    std::array<QWidget*, 2> periodRows{};
    QCheckBox* repeats = nullptr;
    std::array<QRadioButton*, 2> rules{};
    QLineEdit* cycles = nullptr;
    ScheduleGrid* grid;
    ScheduleFields stored;  ///< what the fields held when they last showed what is stored
    bool isShowing = false; ///< the tab itself changes its fields
};

} // namespace korvanel
