#include "core/window/Picture.h"

#include "core/Common.h"
#include "core/Paths.h"

#include <QFileInfo>

namespace korvanel {

QPixmap LoadPicture(const QString& name)
{
    const QString path = JoinPath(App().sProgramDir, name);
    return QFileInfo(path).isFile() ? QPixmap(path) : QPixmap(); // a pipe would hold the program up
}

} // namespace korvanel
