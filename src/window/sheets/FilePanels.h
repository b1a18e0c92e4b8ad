#pragma once

#include <QString>

class QFileDialog;
class QWidget;

// The panels in which the user chooses files of documents. They store no history: see keepNoPanelHistory().

// A panel that asks where to save a document. Does not ask about an existing file.
QFileDialog *newSavePanel(const QString &suggestedPath, QWidget *parent);
// A panel that asks for one or several documents to open.
QFileDialog *newOpenPanel(QWidget *parent);

// The path with the suffix of documents, which is added if it is missing.
QString withDocumentSuffix(const QString &path);

// File dialogs of the toolkit store the folders and names that they showed in a settings file, which would
// reveal where a user keeps secret documents. After this call, such settings files cannot be written. Must be
// called before the first dialog is made. Settings files that are opened by their path are not affected.
void keepNoPanelHistory();
