#include "helpers/FileBookmark.h"

#include "helpers/PersistentFileId.h"

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace
{

constexpr quint32 Magic = 0x56584246;
constexpr quint8 Version = 1;

struct Content
{
    quint32 options = 0;
    PersistentFileId id;
    QString path;
    QString pathFromDocument = QStringLiteral(""); // not null, which the stream encodes differently
};

QByteArray written(const Content &content)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << Magic << Version << content.options << content.id.device << content.id.inode
           << content.id.birthInNanoseconds << QFile::encodeName(content.path)
           << QFile::encodeName(content.pathFromDocument);
    return data;
}

std::optional<Content> read(const QByteArray &data)
{
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_6_0);
    quint32 magic = 0;
    quint8 version = 0;
    Content content;
    QByteArray path;
    QByteArray pathFromDocument;
    stream >> magic >> version >> content.options >> content.id.device >> content.id.inode >>
        content.id.birthInNanoseconds >> path >> pathFromDocument;
    if (stream.status() != QDataStream::Ok || !stream.atEnd() || magic != Magic || version != Version)
        return std::nullopt;
    if (!path.startsWith('/') || path.contains('\0') || pathFromDocument.contains('\0'))
        return std::nullopt;
    content.path = QFile::decodeName(path);
    content.pathFromDocument = QFile::decodeName(pathFromDocument);
    return content;
}

QDir folderOfDocument(const QUrl &document)
{
    return QFileInfo(document.toLocalFile()).absoluteDir();
}

// Returns a null text if no file of the folder has this id. Without a birth time, the inode alone could
// identify another file.
QString pathOfRenamedFile(const QString &folder, const PersistentFileId &id)
{
    if (id.birthInNanoseconds == 0)
        return QString();
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    while (files.hasNext()) {
        const QString path = files.next();
        if (PersistentFileId::ofFile(path) == id)
            return path;
    }
    return QString();
}

} // namespace

QByteArray FileBookmark::bookmarkData(const QUrl &url, quint32 options, const QUrl &relativeTo)
{
    if (!url.isLocalFile() || (!relativeTo.isEmpty() && !relativeTo.isLocalFile()))
        return QByteArray();
    const auto id = PersistentFileId::ofFile(url.toLocalFile());
    if (!id)
        return QByteArray();
    Content content;
    content.options = options;
    content.id = *id;
    content.path = QFileInfo(url.toLocalFile()).absoluteFilePath();
    if (!relativeTo.isEmpty())
        content.pathFromDocument = folderOfDocument(relativeTo).relativeFilePath(content.path);
    return written(content);
}

QUrl FileBookmark::urlByResolving(const QByteArray &data, quint32, const QUrl &relativeTo, bool *isStale)
{
    *isStale = false;
    const auto content = read(data);
    if (!content)
        return QUrl();
    if (const auto id = PersistentFileId::ofFile(content->path)) {
        *isStale = id != content->id;
        return QUrl::fromLocalFile(content->path);
    }
    QString path;
    if (!content->pathFromDocument.isEmpty() && relativeTo.isLocalFile())
        path = QDir::cleanPath(folderOfDocument(relativeTo).filePath(content->pathFromDocument));
    if (path.isEmpty() || !PersistentFileId::ofFile(path))
        path = pathOfRenamedFile(QFileInfo(content->path).path(), content->id);
    if (path.isEmpty())
        return QUrl();
    *isStale = true;
    return QUrl::fromLocalFile(path);
}
