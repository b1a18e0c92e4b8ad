#pragma once

#include "core/DocumentState.h"

#include <QByteArray>

// The checks of every target that opens documents.

inline const QString FuzzedPassword = QStringLiteral("correct horse");

// Ends the program if the condition is false.
void require(bool holds);

// Opens a file with the password. If it opens, every record must have a category that counts it, and a save
// must lose nothing.
void openAndSave(const QByteArray &file);

// Reads a big-endian length of two bytes and that many bytes, or the rest of the input if it is shorter.
QByteArray takePart(QByteArray &rest);
