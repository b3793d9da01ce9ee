#pragma once

#include <QString>

/// The keys of the tool bar's buttons.
namespace norvane::edit_keys {

inline const QString kNew = QStringLiteral("C_NEW");
inline const QString kOpen = QStringLiteral("C_OPEN");
inline const QString kSave = QStringLiteral("C_SAVE");
inline const QString kColor = QStringLiteral("C_COLOR");
inline const QString kCut = QStringLiteral("C_CUT");
inline const QString kCopy = QStringLiteral("C_COPY");
inline const QString kPaste = QStringLiteral("C_PASTE");
inline const QString kBold = QStringLiteral("C_BOLD");
inline const QString kItalic = QStringLiteral("C_ITALIC");
inline const QString kUnderline = QStringLiteral("C_UNDR");
inline const QString kLeft = QStringLiteral("C_LEFT");
inline const QString kCenter = QStringLiteral("C_CENTER");
inline const QString kRight = QStringLiteral("C_RIGHT");
inline const QString kBullet = QStringLiteral("C_BULLET");
inline const QString kFind = QStringLiteral("C_FIND");
inline const QString kPrint = QStringLiteral("C_PRINT");

} // namespace norvane::edit_keys
