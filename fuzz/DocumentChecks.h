#pragma once

#include "core/DocumentState.h"

#include <QByteArray>

// What every target that opens documents asks of them.

inline const QString FuzzedPassword = QStringLiteral("correct horse");

// Ends the program unless it holds.
void require(bool holds);

// Opens a file with the password, and if it opens, requires that every record is filed in a category that
// counts it, and that a save loses nothing.
void openAndSave(const QByteArray &file);

// Two bytes of length, highest first, and as many bytes; what is there, if there are fewer.
QByteArray takePart(QByteArray &rest);
