#include "remote/RemotePlugin.h"

#include "remote/RemoteCommands.h"

#include <QJsonDocument>
#include <QLocalSocket>

namespace korvanel::remote {

Server::Server(const QString& name)
{
    QLocalServer::removeServer(name);
    connect(&server, &QLocalServer::newConnection, this, &Server::Accept);
    server.listen(name);
}

void Server::Accept()
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

QObject* RemotePlugin::create(const QString& key, const QString& socketName)
{
    return key.compare(QLatin1String("korvanelremote"), Qt::CaseInsensitive) == 0 ? new Server(socketName) : nullptr;
}

} // namespace korvanel::remote
