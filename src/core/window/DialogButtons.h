// The foot of a dialog: at the right the button that goes ahead, which Enter presses, and the one that leaves without a
// change.
#pragma once

#include <QString>

#include <functional>

class QDialog;
class QHBoxLayout;
class QPushButton;

namespace korvanel {

struct DialogButtons
{
    QHBoxLayout* row;
    QPushButton* ahead;
};

/// Builds the two buttons by their names. What goes ahead is guarded; the other one rejects the dialog.
DialogButtons BuildDialogButtons(QDialog& dialog, const char* aheadName, const QString& aheadText,
                                 const char* cancelName, const std::function<void()>& goAhead);

} // namespace korvanel
