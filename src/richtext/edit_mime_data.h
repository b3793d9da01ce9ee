#pragma once

#include "richtext/rtf/operations.h"

#include <memory>

class QMimeData;
class QTextCursor;

namespace norvane {

/// The selection for the clipboard: rich text, HTML with its pictures inside, plain text.
std::unique_ptr<QMimeData> mimeDataOf(const QTextCursor &selection);

/// Whether the data holds anything that insertMimeData() takes.
bool canInsertMimeData(const QMimeData &source);
/// The rich text of the data, from any of the names under which programs offer it; empty if none.
QByteArray richTextOf(const QMimeData &source);
/// Whether a piece of HTML shows nothing but a picture that it only names. Programs offer the picture
/// itself beside it.
bool isPictureAlone(const QString &html);
/// The picture of the data, or nothing.
std::optional<rtf::Picture> pictureOf(const QMimeData &source);

} // namespace norvane
