#pragma once

#include <QString>

// The text with every character replaced that could reorder the words around it or hide in them: control
// characters other than line breaks, and the marks, embeddings, overrides and isolates of the Unicode
// bidirectional algorithm (UAX 9). For texts into which names of files and documents were put.
QString withoutReorderingCharacters(QString text);
