#pragma once

#include <QString>

// Replaces every character that could reorder the surrounding words or be invisible: control characters
// except line breaks, and the marks, embeddings, overrides and isolates of the Unicode bidirectional
// algorithm (UAX 9). For texts that contain names of files and documents.
QString withoutReorderingCharacters(QString text);
