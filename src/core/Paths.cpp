#include "core/Paths.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>

namespace korvanel {

namespace {

bool IsSeparator(QChar c)
{
    return c == u'/' || c == u'\\';
}

} // namespace

QString JoinPath(const QString& directory, const QString& name, QChar separator)
{
    qsizetype end = directory.size();
    while (end > 0 && IsSeparator(directory[end - 1]))
        --end;
    qsizetype start = 0;
    while (start < name.size() && IsSeparator(name[start]))
        ++start;
    return directory.left(end) + separator + name.mid(start);
}

QString WithoutTrailingSeparator(const QString& path)
{
    return path.size() > 1 && IsSeparator(path.back()) ? path.chopped(1) : path;
}

QString FileNameOf(const QString& path)
{
    for (qsizetype i = path.size(); i > 0; --i)
        if (IsSeparator(path[i - 1]))
            return path.mid(i);
    return path;
}

bool HasExtension(const QString& path, const QString& extension)
{
    return path.endsWith(extension, Qt::CaseInsensitive);
}

QString WithExtension(const QString& path, const QString& extension)
{
    return HasExtension(path, extension) ? path : path + extension;
}

QString CopyFileReplacing(const QString& source, const QString& target, const std::function<void()>& beforeReplacing)
{
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly))
        return from.errorString();
    QSaveFile to(target);
    if (!to.open(QIODevice::WriteOnly))
        return to.errorString();
    constexpr qint64 kBlock = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        if (from.error() != QFileDevice::NoError)
            return from.errorString();
        if (to.write(block) != block.size())
            return to.errorString();
    }
    if (!to.flush())
        return to.errorString();
    if (beforeReplacing)
        beforeReplacing();
    return to.commit() ? QString() : to.errorString();
}

QString ReplaceFile(const QString& file, const QString& target)
{
    std::error_code error;
    std::filesystem::rename(file.toStdU16String(), target.toStdU16String(), error);
    return error ? QString::fromStdString(error.message()) : QString();
}

} // namespace korvanel
