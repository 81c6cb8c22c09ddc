// What another process may ask of the program: press, type, choose, read and photograph its controls, named by their
// object names. One command is one JSON object, and so is its answer.
#pragma once

#include <QJsonObject>

namespace korvanel::remote {

/// Carries a command out and returns the answer. "ok" tells whether it was possible, "error" why not.
///   {"do":"windows"}                        titles and names of the visible windows
///   {"do":"trigger","name":"mnuNew"}        presses a menu entry, a button or an option
///   {"do":"type","name":"txtName","text":}  replaces the text of a box, key by key
///   {"do":"choose","name":"cboX","text":}   chooses an entry of a list, a box or a tab
///   {"do":"read","name":...}                text, enabled, visible, checked, title, items
///   {"do":"answer","text":"Ja"}             presses a button of the message box on show
///   {"do":"path","text":...}                gives a path to the file dialog on show; an empty one cancels it
///   {"do":"grab","name":...,"text":FILE}    picture of a window; the active one without a name
///   {"do":"close"}                          closes the main window
QJsonObject Execute(const QJsonObject& command);

} // namespace korvanel::remote
