#include "core/window/PlainToolTip.h"

#include <QTextDocument>

namespace korvanel {

QString PlainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace korvanel
