#pragma once

#include <QString>

class QFileDialog;
class QWidget;

// The panels in which the user chooses documents. None remembers anything in a file: see
// keepNoPanelHistory().

extern const QString DocumentSuffix;

// Asks for the place of a document to save. Does not ask about a file that stands there already.
QFileDialog *newSavePanel(const QString &suggestedPath, QWidget *parent);
// Asks for documents to open, one or several.
QFileDialog *newOpenPanel(QWidget *parent);

// The path with the suffix of documents, unless it has it.
QString withDocumentSuffix(const QString &path);

// File dialogs write the folders and names that they showed into a settings file of their own, which tells
// where a user keeps secret documents. From here on such files have no place to be written to. Must be called
// before the first dialog is made; settings files that are named by their path are not concerned.
void keepNoPanelHistory();
