// A plugin of the toolkit that opens a local socket in the running program and carries out the commands that come in,
// one JSON object a line. It is loaded only when the environment asks for it; the program itself knows nothing of it.
#include "RemoteCommands.h"

#include <QGenericPlugin>
#include <QJsonDocument>
#include <QLocalServer>
#include <QLocalSocket>

namespace korvanel::remote {

class Server : public QObject
{
    Q_OBJECT

public:
    explicit Server(const QString& name)
    {
        QLocalServer::removeServer(name);
        connect(&server, &QLocalServer::newConnection, this, &Server::Accept);
        server.listen(name);
    }

private:
    void Accept()
    {
        QLocalSocket* socket = server.nextPendingConnection();
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [socket] {
            while (socket->canReadLine()) {
                const QJsonObject answer = Execute(QJsonDocument::fromJson(socket->readLine()).object());
                socket->write(QJsonDocument(answer).toJson(QJsonDocument::Compact) + '\n');
                socket->flush();
            }
        });
    }

    QLocalServer server;
};

class RemotePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "remote.json")

public:
    /// Answers to the key "korvanelremote"; what follows it behind a colon is the name of the socket.
    QObject* create(const QString& key, const QString& socketName) override
    {
        return key.compare(QLatin1String("korvanelremote"), Qt::CaseInsensitive) == 0 ? new Server(socketName)
                                                                                      : nullptr;
    }
};

} // namespace korvanel::remote

#include "RemotePlugin.moc"
