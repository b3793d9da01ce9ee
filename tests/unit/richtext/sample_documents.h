#pragma once

#include "richtext/rtf/operations.h"

namespace norvane::rtf {

/// A one-pixel picture.
QByteArray samplePng();

/// A document of every kind of operation and format in random order; the same seed gives the same
/// document. Two documents that say the same are equal: neighbouring runs differ in format.
Document sampleDocument(quint32 seed);

/// What a document says, line by line: for comparing documents and for reading a failure.
QString describe(const Document &document);
/// Where two documents do not say the same; empty if they do.
QString firstDifference(const Document &left, const Document &right);

} // namespace norvane::rtf
