// A plugin of the toolkit that opens a local socket in the running program and carries out the commands that come in,
// one JSON object a line. It is loaded only when the environment asks for it; the program itself knows nothing of it.
#pragma once

#include <QGenericPlugin>
#include <QLocalServer>

namespace korvanel::remote {

class Server : public QObject
{
    Q_OBJECT

public:
    explicit Server(const QString& name);

private:
    void Accept();

    QLocalServer server;
};

class RemotePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "remote.json")

public:
    /// Answers to the key "korvanelremote"; what follows it behind a colon is the name of the socket.
    QObject* create(const QString& key, const QString& socketName) override;
};

} // namespace korvanel::remote
