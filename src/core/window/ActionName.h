#pragma once

#include <QString>

class QObject;

namespace korvanel {

/// A caption as a message names it: without the mark of its key and the dots of a dialog to come.
QString PlainCaption(const QString& caption);

/// What a person has done with a control, as a message names it: the caption of the menu entry or button that was
/// pressed, the accessible name of a box, else the title of the window around it.
QString ActionName(const QObject* control);

} // namespace korvanel
