#include "core/window/ActionName.h"

#include <QAbstractButton>
#include <QAction>
#include <QWidget>

namespace korvanel {

QString PlainCaption(const QString& caption)
{
    const QString mark = QStringLiteral("&&");
    QString plain = caption;
    plain.replace(mark, QString(QChar::Null)).remove(u'&').replace(QChar::Null, u'&');
    if (plain.endsWith(QStringLiteral("...")))
        plain.chop(3);
    return plain.trimmed();
}

QString ActionName(const QObject* control)
{
    if (const auto* entry = qobject_cast<const QAction*>(control))
        return PlainCaption(entry->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(control); button && !button->text().isEmpty())
        return PlainCaption(button->text());
    const auto* widget = qobject_cast<const QWidget*>(control);
    if (widget && !widget->accessibleName().isEmpty())
        return PlainCaption(widget->accessibleName());
    for (; widget; widget = widget->parentWidget())
        if (!widget->windowTitle().isEmpty())
            return widget->windowTitle();
    return {};
}

} // namespace korvanel
