#pragma once

#include <QString>

namespace Foundation
{

// Names for the files of the documents of an application.
struct DocumentType
{
    QString application;       // For example "vexarel". Used in the names of folders and temporary files.
    QString fileNameExtension; // For example "vexcards", without the dot.
};

} // namespace Foundation
