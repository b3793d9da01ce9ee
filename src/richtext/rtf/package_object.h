#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// The data of an embedded object that carries a file: an object of class "Package", whose own data
/// is the packager's stream, in the form in which rich text holds objects. Plain values; nothing is
/// run, and no file is touched.
namespace norvane::rtf {

/// The class of such an object.
inline const QString kPackageClass = QStringLiteral("Package");

struct PackagedFile
{
    QString label;   ///< beneath the object's icon
    QString source;  ///< name of the file, perhaps with the path that it had
    QString command; ///< what its program was to be started with, perhaps a path
    QByteArray bytes;

    bool operator==(const PackagedFile &) const = default;
};

/// The data of an object that carries the file (EmbeddedObject::data).
QByteArray packageData(const PackagedFile &file);

/// The file that an object carries. Nothing when the data is of another class, only names a file, or
/// does not hold all of it. Names that are damaged are as much as is left of them.
std::optional<PackagedFile> packagedFileOf(const QByteArray &data);

} // namespace norvane::rtf
