// Tab of the rating data and the no-load data, with the no-load test through the instrument.
#pragma once

#include "motors/MachineEntry.h"
#include "motors/NoLoadMeasurement.h"

#include <QWidget>

#include <vector>

class QButtonGroup;
class QCheckBox;
class QFormLayout;

namespace korvanel {

class KnownGroup;
class NoLoadPanel;
class NumberBox;

class RatingTab : public QWidget
{
    Q_OBJECT

public:
    RatingTab();
    void Show(const MachineEntry& entry);
    /// Puts what the tab holds into the entry.
    void Collect(MachineEntry& entry) const;
    void SetEditing(bool isEditing);
    /// The number boxes, in the order of the tab.
    const std::vector<NumberBox*>& Boxes() const { return boxes; }
    NoLoadPanel& Panel() { return *panel; }

    NoLoadTexts NoLoad() const;
    void ShowNoLoad(const NoLoadTexts& texts);
    /// Everything but the button that ends the measurement is locked.
    void SetMeasuring(bool isMeasuring);

private:
    QWidget* BuildRating();
    QWidget* BuildNoLoad();
    NumberBox* AddNumber(KnownGroup& group, QFormLayout& form, std::size_t field);
    bool IsGenerator() const;
    void EnableMeasurement();

    KnownGroup* rating = nullptr;
    KnownGroup* noLoad = nullptr;
    QButtonGroup* options;
    QCheckBox* onlineBox = nullptr;
    NoLoadPanel* panel = nullptr;
    std::vector<NumberBox*> boxes; ///< by their fields
    bool isEdited = false;
};

} // namespace korvanel
