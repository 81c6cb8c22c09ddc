// Ends a program as soon as its main window has been shown and painted for the first time.
#include <QApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QPaintEvent>

#include <cstdlib>

namespace korvanel::bench {

class Watch : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched))
            std::_Exit(EXIT_SUCCESS);
        return false;
    }
};

class ShownPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "shown.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        auto* watch = new Watch;
        QCoreApplication::instance()->installEventFilter(watch);
        return watch;
    }
};

} // namespace korvanel::bench

#include "ShownPlugin.moc"
