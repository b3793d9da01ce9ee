#pragma once

#include <QByteArray>

namespace norvane {

/// Programs that know no other picture write a bitmap as a metafile that does nothing but draw it.
/// @return the bitmap of such a metafile (WMF or EMF) as a device independent bitmap; empty for
/// metafiles that draw anything else, and for damaged ones
QByteArray bitmapOfMetafile(const QByteArray &metafile);

} // namespace norvane
