#include "output/OwnFiles.h"

#include "core/Common.h"

#include <QFileInfo>

namespace korvanel {

bool IsOwnFile(const QString& path)
{
    const QFileInfo file(path);
    for (const QString& own : {App().sProjectPath, App().sMotorDbPath})
        if ((file.exists() && file == QFileInfo(own)) ||
            file.absoluteFilePath() == QFileInfo(own).absoluteFilePath() + QStringLiteral("-journal"))
            return true;
    return false;
}

} // namespace korvanel
